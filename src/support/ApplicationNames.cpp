#include "support/ApplicationNames.h"

namespace orv {

std::string ApplicationShortName = "Tidewell Backup";
std::string ApplicationLongName = "Corvanta Tidewell Backup";

}  // namespace orv
