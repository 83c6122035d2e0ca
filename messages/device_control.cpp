/* Device control and status (types 12, 15 to 21): reboot and upgrade
 * orders, the upgrade state, the login password and the on/off switches of
 * the firewall, the LEDs and dual-band synchronisation.
 *
 * Enumerations travel as words; a word the receiver does not know stores the
 * kind's fallback number and the conversion still succeeds. */
#include "core/codec.h"
#include "messages/system_fields.h"

namespace {

using bx::Field;

/* Quirk: the reboot type is sent as "status" but received as "reboottype". */
constexpr Field kRebootSent[] = {
    BX_WORD(RebootParam, eRebootType, EnumTiming, "status", nullptr),
};
constexpr Field kRebootReceived[] = {
    BX_WORD(RebootParam, eRebootType, EnumTiming, "reboottype", "reboot type:%d"),
};

/* Every key optional when received. */
constexpr Field kUpgrade[] = {
    BX_TEXT(UpgradeParam, szDownUrl, "downurl", "down url:%s"),
    BX_TEXT(UpgradeParam, szVersionUrl, "versionurl", "version url:%s"),
    BX_U32(UpgradeParam, uiFileSize, "filesize", "file size:%u"),
    BX_TEXT(UpgradeParam, szChkSum, "chksum", "chksum:%s"),
    /* Quirk: the reboot type is traced with the file size's text. */
    BX_WORD(UpgradeParam, eRebootType, EnumTiming, "reboottype", "file size:%u"),
};

/* The password is traced in clear, like every other value. */
constexpr Field kLoginPassword[] = {
    BX_TEXT(LoginPasswordParam, szPassword, "password", "password:%s"),
};

/* The three switches share their record and their key; only the receivers'
 * trace texts differ. */
constexpr Field kFireWall[] = {
    BX_WORD(SwitchStatusParam, eStatus, EnumSwitch, "status", "status:%d"),
};
constexpr Field kLed[] = {
    BX_WORD(SwitchStatusParam, eStatus, EnumSwitch, "status", "led status:%d"),
};
constexpr Field kDualbandSync[] = {
    BX_WORD(SwitchStatusParam, eStatus, EnumSwitch, "status", "dualbandsync status:%d"),
};

constexpr Field kUpgradeStatus[] = {
    BX_WORD(UpgradeStatusParam, eUpgradeStatus, EnumUpgradeState, "UpgradeStatus", nullptr),
};

/* Quirk: EnumLedColour has no words towards the bus, so the colour is sent
 * as its decimal number ("1") but received as a word ("green"). */
constexpr Field kLedColour[] = {
    BX_WORD(LedColourParam, eStatus, EnumSwitch, "status", "ledcolour status:%d"),
    BX_WORD(LedColourParam, eColour, EnumLedColour, "colour", "ledcolour colour: %d"),
};

} // namespace

extern "C" {

BX_API int STJ_Reboot(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kRebootSent);
}

BX_API int JTS_Reboot(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kRebootReceived>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_Upgrade(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kUpgrade);
}

BX_API int JTS_Upgrade(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::jts_fields<kUpgrade>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_LoginPassWord(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kLoginPassword);
}

BX_API int JTS_LoginPassWord(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::sys::jts_required<kLoginPassword>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_FireWall(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kFireWall);
}

BX_API int JTS_FireWall(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::sys::jts_required<kFireWall>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_LedStatus(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kLed);
}

BX_API int JTS_Led(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::sys::jts_required<kLed>(__func__, pstMsg, pvRecord);
}

/* Sent only: nobody asks the device to be in an upgrade state. */
BX_API int STJ_UpgradeStatus(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kUpgradeStatus);
}

BX_API int STJ_LedColour(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kLedColour);
}

BX_API int JTS_Led_Colour(struct blob_attr *pstMsg, void *pvRecord)
{
    if (pstMsg == nullptr || pvRecord == nullptr)
        return -1;
    BX_TRACE("JTS_Led_Colour()\n");
    return bx::jts_fields<kLedColour>(__func__, pstMsg, pvRecord);
}

BX_API int STJ_DualbandSyncStatus(const void *pvRecord, struct blob_buf *pstBuf)
{
    return bx::stj_fields(pvRecord, pstBuf, kDualbandSync);
}

BX_API int JTS_DualbandSync(struct blob_attr *pstMsg, void *pvRecord)
{
    return bx::sys::jts_required<kDualbandSync>(__func__, pstMsg, pvRecord);
}

} // extern "C"
