// National settings in force: the system's, unless the settings AmPm, DecimalChar and ThousandsChar say
// otherwise.
#pragma once

#include "platform/national.h"

NationalSettings Country();

// Has the system's settings read again on their next use; called once per typed line.
void QueryCountryInfo();
