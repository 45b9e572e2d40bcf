// What a program may have included before a header of ours: standard headers, and then the system's own,
// with all of its macros.
#include <algorithm>
#include <istream>
#include <limits>
#include <ostream>
#include <string>

#include "../msvc/system_macros.h"
