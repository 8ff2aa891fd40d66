// What a satellite receiver tells. Without one all of them are empty.
#include "internals/families.h"

#include "internals/values.h"
#include "platform/position_sensor.h"

namespace {

bool Answer(CString& value, PositionFact fact) { return AnswerText(value, ReadPositionFact(fact)); }

} // namespace

bool Gpsalt_Variable(CString& value) { return Answer(value, PositionFact::Altitude); }
bool Gpsazimuth_Variable(CString& value) { return Answer(value, PositionFact::Azimuth); }
bool Gpselevation_Variable(CString& value) { return Answer(value, PositionFact::Elevation); }
bool Gpserrorradius_Variable(CString& value) { return Answer(value, PositionFact::ErrorRadius); }
bool Gpsfixquality_Variable(CString& value) { return Answer(value, PositionFact::FixQuality); }
bool Gpsfixtype_Variable(CString& value) { return Answer(value, PositionFact::FixType); }
bool Gpshdop_Variable(CString& value) { return Answer(value, PositionFact::HorizontalDilution); }
bool Gpsheading_Variable(CString& value) { return Answer(value, PositionFact::Heading); }
bool Gpsids_Variable(CString& value) { return Answer(value, PositionFact::SatellitesInViewNumbers); }
bool Gpslat_Variable(CString& value) { return Answer(value, PositionFact::Latitude); }
bool Gpslon_Variable(CString& value) { return Answer(value, PositionFact::Longitude); }
bool Gpsmagheading_Variable(CString& value) { return Answer(value, PositionFact::MagneticHeading); }
bool Gpsnmea_Variable(CString& value) { return Answer(value, PositionFact::Sentence); }
bool Gpsopmode_Variable(CString& value) { return Answer(value, PositionFact::OperationMode); }
bool Gpspdop_Variable(CString& value) { return Answer(value, PositionFact::PositionDilution); }
bool Gpsprns_Variable(CString& value) { return Answer(value, PositionFact::SatellitesUsedNumbers); }
bool Gpssatsinview_Variable(CString& value) { return Answer(value, PositionFact::SatellitesInView); }
bool Gpssatsused_Variable(CString& value) { return Answer(value, PositionFact::SatellitesUsed); }
bool Gpsselmode_Variable(CString& value) { return Answer(value, PositionFact::SelectionMode); }
bool Gpssnr_Variable(CString& value) { return Answer(value, PositionFact::SignalToNoise); }
bool Gpsspeed_Variable(CString& value) { return Answer(value, PositionFact::Speed); }
bool Gpsstatus_Variable(CString& value) { return Answer(value, PositionFact::Status); }
bool Gpsvdop_Variable(CString& value) { return Answer(value, PositionFact::VerticalDilution); }
