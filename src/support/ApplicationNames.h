#pragma once

#include <string>

namespace orv {

// The names of the product as its brand has them; loading a brand sets them. Main thread only.

extern std::string ApplicationShortName;
extern std::string ApplicationLongName;

}  // namespace orv
