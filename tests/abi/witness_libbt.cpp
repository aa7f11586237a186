// Names every record, enumeration and class of libbt's public headers, those too that the library itself does
// not use: its own debug information has only what it uses. witness_test.py compares this list with the
// headers.

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtListenerBase.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtMessageListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>
#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtBle.h>
#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtExport.h>
#include <bluetooth/MWPBtMedia.h>
#include <bluetooth/MWPBtMessage.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>
#include <bluetooth/MWPBtRecords.h>
#include <bluetooth/MWPBtSpp.h>
#include <bluetooth/MWPBtType.h>
#include <bluetooth/ShareMemID.h>

#include "witness.h"

using namespace MWPBtType;

// IMWPBtBleListener.h
WITNESS(IMWPBtBleListener)

// IMWPBtComListener.h
WITNESS(IMWPBtComListener)

// IMWPBtListenerBase.h
WITNESS(MWPBtListenerType)
WITNESS(IMWPBtListenerBase)

// IMWPBtMediaListener.h
WITNESS(IMWPBtMediaListener)

// IMWPBtMessageListener.h
WITNESS(IMWPBtMessageListener)

// IMWPBtPbapListener.h
WITNESS(IMWPBtPbapListener)

// IMWPBtPhoneListener.h
WITNESS(IMWPBtPhoneListener)

// IMWPBtSppListener.h
WITNESS(IMWPBtSppListener)

// MWPBtBle.h
WITNESS(MWPBtBle)

// MWPBtCom.h
WITNESS(MWPBtCom)

// MWPBtMedia.h
WITNESS(MWPBtMedia)

// MWPBtMessage.h
WITNESS(MWPBtMessage)

// MWPBtPbap.h
WITNESS(MWPBtPbap)

// MWPBtPhone.h
WITNESS(MWPBtPhone)

// MWPBtRecords.h
WITNESS(MWPTypeDevice)
WITNESS(MWPTypeContactNumber)
WITNESS(MWPTypeContact)
WITNESS(MWPTypeCallLog)
WITNESS(MWPTypeCallSlot)
WITNESS(MWPTypeCallInfo)
WITNESS(MWPTypeMediaInfo)
WITNESS(MWPTypePlayMode)
WITNESS(MWPTypeConnectionState)
WITNESS(MWPTypeMessage)
WITNESS(MWPTypeMediaItem)
WITNESS(MWPTypeScanDevice)
WITNESS(MWPTypeBleDevice)
WITNESS(MWPTypeGattService)

// MWPBtSpp.h
WITNESS(MWPBtSpp)

// MWPBtType.h
WITNESS(PowerStatus)
WITNESS(Capability)
WITNESS(Attribute)
WITNESS(ProfileId)
WITNESS(ProfileVersion)
WITNESS(ConnStatus)
WITNESS(PairStatus)
WITNESS(PairFailedReson)
WITNESS(PairRequestState)
WITNESS(ScanStatus)
WITNESS(SupportType)
WITNESS(HUStatus)
WITNESS(CallStatus)
WITNESS(CallAction)
WITNESS(AudioStatus)
WITNESS(CodecMode)
WITNESS(MusicPlayStatus)
WITNESS(SupportAvrcpEvent)
WITNESS(BrowserScopeType)
WITNESS(PbapType)
WITNESS(PbapStatus)
WITNESS(MsgLoadStatus)
WITNESS(MsgStatus)
WITNESS(SetMsgProStatus)
WITNESS(HIDTYPE)
WITNESS(BleScanMode)
WITNESS(BleScanFilter)
WITNESS(SmpEvent)
WITNESS(CallLogType)
WITNESS(MWPBtMessageType)

// ShareMemID.h
WITNESS(ShareMemID)
