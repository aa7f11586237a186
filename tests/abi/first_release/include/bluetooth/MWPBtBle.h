#ifndef BLUETOOTH_MWPBTBLE_H
#define BLUETOOTH_MWPBTBLE_H

#include <list>
#include <string>

#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtRecords.h>
#include <bluetooth/MWPBtType.h>

/// Bluetooth Low Energy. The service offers none yet: the first six methods answer 0 without a service call.
/// The others answer the power status of the adapter, as MWPBtCom::GetPowerStatus does, and leave their out
/// arguments as they are. The events are in IMWPBtBleListener.
///
/// The object carries no state: construct one wherever it is needed. While the library is not initialised,
/// every method answers 0.
class MWP_BT_API MWPBtBle {
 public:
  MWPBtBle();
  ~MWPBtBle();

  /// Answers 0.
  /// @return 0
  int BleInit();
  /// Answers 0.
  /// @return 0
  int BleDeInit();
  /// Answers 0.
  /// @param start is not looked at
  /// @param mode is not looked at
  /// @param filter is not looked at
  /// @return 0
  int BleDiscovery(int start, MWPBtType::BleScanMode mode, MWPBtType::BleScanFilter filter);
  /// Answers 0.
  /// @return 0
  int BleStopDiscovery();
  /// Answers 0.
  /// @param address is not looked at
  /// @param addressType is not looked at
  /// @return 0
  int BleGATTConnect(const std::string& address, unsigned char addressType);
  /// Answers 0.
  /// @return 0
  int BleGATTDisConnect();
  /// Answers the power status.
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleGetAllService();
  /// Answers the power status.
  /// @param uuid is not looked at
  /// @param handle stays as it is
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleGetServiceByUUID(const std::string& uuid, int& handle);
  /// Answers the power status.
  /// @param uuid is not looked at
  /// @param handle stays as it is
  /// @param valueHandle stays as it is
  /// @param properties stays as it is
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleGetCharByUUID(const std::string& uuid, int& handle, int& valueHandle, int& properties);
  /// Answers the power status.
  /// @param uuid is not looked at
  /// @param handle stays as it is
  /// @param valueHandle stays as it is
  /// @param properties stays as it is
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleGetDescByUUID(const std::string& uuid, int& handle, int& valueHandle, int& properties);
  /// Answers the power status.
  /// @param handle is not looked at
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleGATTRegisterCharNotification(unsigned short handle);
  /// Answers the power status.
  /// @param handle is not looked at
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleGATTReadChar(unsigned short handle);
  /// Answers the power status.
  /// @param handle is not looked at
  /// @param data is not looked at
  /// @param length is not looked at
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleGATTWriteChar(unsigned short handle, const unsigned char* data, unsigned int length);
  /// Answers the power status.
  /// @param devices stays as it is
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleGetDiscoveryDevices(std::list<MWPTypeBleDevice>& devices);
  /// Answers the power status.
  /// @param services stays as it is
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleGetAllServices(std::list<MWPTypeGattService>& services);
  /// Answers the power status.
  /// @param address is not looked at
  /// @param addressType is not looked at
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleSMPPair(const std::string& address, unsigned char addressType);
  /// Answers the power status.
  /// @param accept is not looked at
  /// @param passkey is not looked at
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleSmpPasskeyReply(int accept, unsigned int passkey);
  /// Answers the power status.
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleGetWhitelistSize();
  /// Answers the power status.
  /// @param address is not looked at
  /// @param addressType is not looked at
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleAddToWhiteList(const std::string& address, unsigned char addressType);
  /// Answers the power status.
  /// @param address is not looked at
  /// @param addressType is not looked at
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleRemoveFromWhitelist(const std::string& address, unsigned char addressType);
  /// Answers the power status.
  /// @return an MWPBtType::PowerStatus; 0 if it could not be read
  int BleClearWhitelist();
};

#endif
