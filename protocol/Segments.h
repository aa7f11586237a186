#ifndef PROTOCOL_SEGMENTS_H
#define PROTOCOL_SEGMENTS_H

#include <cstddef>

#include <bluetooth/ShareMemID.h>

/// The file whose name, together with a segment's id, gives the segment's key: the service's executable.
constexpr const char* kSegmentKeyPath = "/app/bin/btservice";

/// One segment of the contract with the service.
struct SegmentEntry {
  ShareMemID id;
  const char* name;
  std::size_t size;  ///< in bytes; both sides must agree
};

/// All segments, in the order of their ids, which are also their places in this table.
constexpr SegmentEntry kSegmentCatalogue[] = {
    {SH_PAIRED_LIST, "SH_PAIRED_LIST", 2048},       {SH_CONTACT_INFO, "SH_CONTACT_INFO", 10240},
    {SH_CONTACT_LIST, "SH_CONTACT_LIST", 0x200000}, {SH_FAV_CONTACT_LIST, "SH_FAV_CONTACT_LIST", 0x100000},
    {SH_CALL_LOG_INFO, "SH_CALL_LOG_INFO", 5120},   {SH_CALL_LOG_LIST, "SH_CALL_LOG_LIST", 0xC800},
    {SH_CALL_INFO_LIST, "SH_CALL_INFO_LIST", 2048}, {SH_BT_PARAMETER, "SH_BT_PARAMETER", 40},
};

/// Offsets, in bytes, of the 32-bit words of SH_BT_PARAMETER. The word at 24 is reserved.
enum ParameterOffset : std::size_t {
  PARAMETER_POWER_SWITCH = 0,
  PARAMETER_AUTO_ANSWER_PAIR = 4,
  PARAMETER_AUTO_CONNECT = 8,
  PARAMETER_AUTO_REJECT_INCALL = 12,
  PARAMETER_AUTO_ANSWER = 16,
  PARAMETER_AUTO_DOWNLOAD = 20,
  PARAMETER_ENABLE_SCAN = 28,
  PARAMETER_LOCAL_RING = 32,
  PARAMETER_LOADED = 36,
};

#endif
