// What a satellite receiver tells, through the system's sensor service.
#pragma once

#include "text/cstring.h"

enum class PositionFact {
    Latitude,        // degrees, north positive
    Longitude,       // degrees, east positive
    Altitude,        // metres above the sea
    Speed,           // knots
    Heading,         // degrees from true north
    MagneticHeading, // degrees from magnetic north
    FixQuality,
    FixType,
    PositionDilution,
    HorizontalDilution,
    VerticalDilution,
    SatellitesUsed,
    SatellitesUsedNumbers,
    SatellitesInView,
    SatellitesInViewNumbers,
    Elevation,
    Azimuth,
    SignalToNoise,
    ErrorRadius, // metres
    SelectionMode,
    OperationMode,
    Status,
    Sentence, // as the receiver sent it last
};

// Empty without a receiver, and for facts that it does not report. Several values are parted by blanks.
CString ReadPositionFact(PositionFact fact);
