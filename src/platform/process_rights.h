// What this process may do.
#pragma once

// Whether it runs with the full rights of an administrator.
bool IsElevated();
