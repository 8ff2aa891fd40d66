#include "engine/country.h"

#include "engine/inifile.h"
#include "engine/state.h"

namespace {

void OverrideSeparator(char16_t& separator, SettingChoice setting)
{
    constexpr char16_t separators[] = {0, u'.', u',', u'\''};
    if (setting != choice::separator::automatic)
        separator = separators[setting];
}

} // namespace

NationalSettings Country()
{
    if (!aGlobals.countryKnown) {
        aGlobals.country = SystemNationalSettings();
        aGlobals.countryKnown = 1;
    }
    NationalSettings country = aGlobals.country;
    if (aIniFile.AmPm != choice::amPm::automatic)
        country.twelveHours = aIniFile.AmPm == choice::amPm::yes;
    OverrideSeparator(country.decimal, aIniFile.DecimalChar);
    OverrideSeparator(country.thousands, aIniFile.ThousandsChar);
    return country;
}

void QueryCountryInfo() { aGlobals.countryKnown = 0; }
