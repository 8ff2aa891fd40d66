// How the settings want the console's window: place, shape and opacity.
#pragma once

// Both do nothing, and load no library, while the settings have their defaults.
void PlaceWindowAsSet();
void MakeWindowAsOpaqueAsSet();
