#ifndef BLUETOOTH_SHAREMEMID_H
#define BLUETOOTH_SHAREMEMID_H

/// The System V segments that the library and the Bluetooth service both attach. The value is also the
/// project id from which the key of the segment is made, so it is part of the contract with the service.
enum ShareMemID : int {
  SH_PAIRED_LIST = 0,       ///< paired devices, 2048 bytes
  SH_CONTACT_INFO = 1,      ///< details of one contact, 10240 bytes
  SH_CONTACT_LIST = 2,      ///< the phone book, 2 MiB
  SH_FAV_CONTACT_LIST = 3,  ///< the favourite contacts, 1 MiB
  SH_CALL_LOG_INFO = 4,     ///< details of one call-log entry, 5120 bytes
  SH_CALL_LOG_LIST = 5,     ///< the call log, 51200 bytes
  SH_CALL_INFO_LIST = 6,    ///< the current calls, 2048 bytes
  SH_BT_PARAMETER = 7,      ///< the Bluetooth parameters, ten 32-bit words
};

#endif
