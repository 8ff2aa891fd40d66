#include "platform/position_sensor.h"

#include <cstdint>
#include <cstdio>

#include "platform/com_objects.h"
#include "text/encoding.h"
#include "text/format.h"

#include <initguid.h>

#include <sensors.h>
#include <sensorsapi.h>

namespace {

const PROPERTYKEY& KeyOf(PositionFact fact)
{
    switch (fact) {
    case PositionFact::Latitude: return SENSOR_DATA_TYPE_LATITUDE_DEGREES;
    case PositionFact::Longitude: return SENSOR_DATA_TYPE_LONGITUDE_DEGREES;
    case PositionFact::Altitude: return SENSOR_DATA_TYPE_ALTITUDE_SEALEVEL_METERS;
    case PositionFact::Speed: return SENSOR_DATA_TYPE_SPEED_KNOTS;
    case PositionFact::Heading: return SENSOR_DATA_TYPE_TRUE_HEADING_DEGREES;
    case PositionFact::MagneticHeading: return SENSOR_DATA_TYPE_MAGNETIC_HEADING_DEGREES;
    case PositionFact::FixQuality: return SENSOR_DATA_TYPE_FIX_QUALITY;
    case PositionFact::FixType: return SENSOR_DATA_TYPE_FIX_TYPE;
    case PositionFact::PositionDilution: return SENSOR_DATA_TYPE_POSITION_DILUTION_OF_PRECISION;
    case PositionFact::HorizontalDilution: return SENSOR_DATA_TYPE_HORIZONAL_DILUTION_OF_PRECISION;
    case PositionFact::VerticalDilution: return SENSOR_DATA_TYPE_VERTICAL_DILUTION_OF_PRECISION;
    case PositionFact::SatellitesUsed: return SENSOR_DATA_TYPE_SATELLITES_USED_COUNT;
    case PositionFact::SatellitesUsedNumbers: return SENSOR_DATA_TYPE_SATELLITES_USED_PRNS;
    case PositionFact::SatellitesInView: return SENSOR_DATA_TYPE_SATELLITES_IN_VIEW;
    case PositionFact::SatellitesInViewNumbers: return SENSOR_DATA_TYPE_SATELLITES_IN_VIEW_ID;
    case PositionFact::Elevation: return SENSOR_DATA_TYPE_SATELLITES_IN_VIEW_ELEVATION;
    case PositionFact::Azimuth: return SENSOR_DATA_TYPE_SATELLITES_IN_VIEW_AZIMUTH;
    case PositionFact::SignalToNoise: return SENSOR_DATA_TYPE_SATELLITES_IN_VIEW_STN_RATIO;
    case PositionFact::ErrorRadius: return SENSOR_DATA_TYPE_ERROR_RADIUS_METERS;
    case PositionFact::SelectionMode: return SENSOR_DATA_TYPE_GPS_SELECTION_MODE;
    case PositionFact::OperationMode: return SENSOR_DATA_TYPE_GPS_OPERATION_MODE;
    case PositionFact::Status: return SENSOR_DATA_TYPE_GPS_STATUS;
    case PositionFact::Sentence: break;
    }
    return SENSOR_DATA_TYPE_NMEA_SENTENCE;
}

void AppendDecimal(CString& text, double value)
{
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.10g", value);
    text.Append(FromAscii(digits));
}

template <typename Number> void AppendNumber(CString& text, Number value)
{
    if (!text.empty())
        text.Append(u' ');
    if constexpr (std::is_floating_point_v<Number>)
        AppendDecimal(text, static_cast<double>(value));
    else
        text.Append(Format(std::is_signed_v<Number> ? u"%d" : u"%u", value));
}

// Lists come as vectors of numbers, or as the bytes of one.
CString TextOf(const PROPVARIANT& value)
{
    CString text;
    auto list = [&](const auto& vector) {
        for (ULONG n = 0; n < vector.cElems; ++n)
            AppendNumber(text, vector.pElems[n]);
    };
    switch (value.vt) {
    case VT_R4: AppendNumber(text, value.fltVal); break;
    case VT_R8: AppendNumber(text, value.dblVal); break;
    case VT_I2: AppendNumber(text, value.iVal); break;
    case VT_UI2: AppendNumber(text, value.uiVal); break;
    case VT_I4: AppendNumber(text, static_cast<std::int32_t>(value.lVal)); break;
    case VT_UI4: AppendNumber(text, static_cast<std::uint32_t>(value.ulVal)); break;
    case VT_LPWSTR: text = reinterpret_cast<const char16_t*>(value.pwszVal); break;
    case VT_VECTOR | VT_I2: list(value.cai); break;
    case VT_VECTOR | VT_UI2: list(value.caui); break;
    case VT_VECTOR | VT_I4: list(value.cal); break;
    case VT_VECTOR | VT_UI4: list(value.caul); break;
    case VT_VECTOR | VT_R4: list(value.caflt); break;
    case VT_VECTOR | VT_R8: list(value.cadbl); break;
    case VT_VECTOR | VT_UI1:
        for (ULONG at = 0; at + sizeof(std::uint32_t) <= value.caub.cElems; at += sizeof(std::uint32_t))
            AppendNumber(text, *reinterpret_cast<const std::uint32_t*>(value.caub.pElems + at));
        break;
    default: break;
    }
    return text;
}

// The newest report of the first receiver.
bool ReadReport(ComPointer<ISensorDataReport>& report)
{
    ComPointer<ISensorManager> manager;
    ComPointer<ISensorCollection> receivers;
    ComPointer<ISensor> receiver;
    return CreateComObject(CLSID_SensorManager, IID_ISensorManager,
                           reinterpret_cast<void**>(manager.Receive())) &&
           SUCCEEDED(manager->GetSensorsByType(SENSOR_TYPE_LOCATION_GPS, receivers.Receive())) && receivers &&
           SUCCEEDED(receivers->GetAt(0, receiver.Receive())) && receiver &&
           SUCCEEDED(receiver->GetData(report.Receive())) && report;
}

} // namespace

CString ReadPositionFact(PositionFact fact)
{
    ComPointer<ISensorDataReport> report;
    if (!ReadReport(report))
        return {};
    PROPVARIANT value = {};
    CString text;
    if (SUCCEEDED(report->GetSensorValue(KeyOf(fact), &value)))
        text = TextOf(value);
    ClearComValue(value);
    return text;
}
