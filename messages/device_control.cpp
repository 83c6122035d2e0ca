/* Device control and status (types 12, 15 to 21): reboot and upgrade
 * orders, the upgrade state, the login password and the on/off switches of
 * the firewall, the LEDs and dual-band synchronisation.
 *
 * Enumerations travel as words; a word the receiver does not know stores the
 * kind's fallback number and the conversion still succeeds. */
#include "core/codec.h"

namespace {

using bx::Field;

/* Quirk: the reboot type is sent as "status" but received as "reboottype". */
constexpr bx::FieldDef kRebootSource[] = {
    BX_WORD(RebootParam, eRebootType, EnumTiming, "status", nullptr, .way = bx::Way::Sent),
    BX_WORD(RebootParam, eRebootType, EnumTiming, "reboottype", "reboot type:%d", .way = bx::Way::Received),
};
BX_PACKED(kReboot);

/* Every key optional when received. */
constexpr bx::FieldDef kUpgradeSource[] = {
    BX_TEXT(UpgradeParam, szDownUrl, "downurl", "down url:%s"),
    BX_TEXT(UpgradeParam, szVersionUrl, "versionurl", "version url:%s"),
    BX_U32(UpgradeParam, uiFileSize, "filesize", "file size:%u"),
    BX_TEXT(UpgradeParam, szChkSum, "chksum", "chksum:%s"),
    /* Quirk: the reboot type is traced with the file size's text. */
    BX_WORD(UpgradeParam, eRebootType, EnumTiming, "reboottype", "file size:%u"),
};
BX_PACKED(kUpgrade);

/* The password is traced in clear, like every other value. */
constexpr bx::FieldDef kLoginPasswordSource[] = {
    BX_TEXT(LoginPasswordParam, szPassword, "password", "password:%s", .required = true),
};
BX_PACKED(kLoginPassword);

/* The three switches share their record and their key; only the receivers'
 * trace texts differ. */
constexpr bx::FieldDef kFireWallSource[] = {
    BX_WORD(SwitchStatusParam, eStatus, EnumSwitch, "status", "status:%d", .required = true),
};
BX_PACKED(kFireWall);
constexpr bx::FieldDef kLedSource[] = {
    BX_WORD(SwitchStatusParam, eStatus, EnumSwitch, "status", "led status:%d", .required = true),
};
BX_PACKED(kLed);
constexpr bx::FieldDef kDualbandSyncSource[] = {
    BX_WORD(SwitchStatusParam, eStatus, EnumSwitch, "status", "dualbandsync status:%d", .required = true),
};
BX_PACKED(kDualbandSync);

constexpr bx::FieldDef kUpgradeStatusSource[] = {
    BX_WORD(UpgradeStatusParam, eUpgradeStatus, EnumUpgradeState, "UpgradeStatus", nullptr),
};
BX_PACKED(kUpgradeStatus);

/* Quirk: the receiver traces its own name before the fields. */
bx::Read read_first_led_colour(const bx::Reading &r, const Field &f, blob_attr *attr)
{
    BX_TRACE_AS(r.func, "%s()\n", r.func);
    return bx::read_slot(r, f, attr);
}

constexpr bx::Quirk kNamedFirst{read_first_led_colour, nullptr, "the converter traces its own name before this field"};

/* Quirk: EnumLedColour has no words towards the bus, so the colour is sent
 * as its decimal number ("1") but received as a word ("green"). */
constexpr bx::FieldDef kLedColourSource[] = {
    BX_WORD(LedColourParam, eStatus, EnumSwitch, "status", "ledcolour status:%d", .quirk = &kNamedFirst),
    BX_WORD(LedColourParam, eColour, EnumLedColour, "colour", "ledcolour colour: %d"),
};
BX_PACKED(kLedColour);

} // namespace

extern "C" {

BX_CONVERTERS(STJ_Reboot, JTS_Reboot, kReboot)

BX_CONVERTERS(STJ_Upgrade, JTS_Upgrade, kUpgrade)

BX_CONVERTERS(STJ_LoginPassWord, JTS_LoginPassWord, kLoginPassword)

BX_CONVERTERS(STJ_FireWall, JTS_FireWall, kFireWall)

BX_CONVERTERS(STJ_LedStatus, JTS_Led, kLed)

/* Sent only: nobody asks the device to be in an upgrade state. */
BX_SENT_ROW(STJ_UpgradeStatus, kUpgradeStatus, ::bx::kNoMask)

BX_CONVERTERS(STJ_LedColour, JTS_Led_Colour, kLedColour)

BX_CONVERTERS(STJ_DualbandSyncStatus, JTS_DualbandSync, kDualbandSync)

} // extern "C"
