#include "backup/sharing/SharingOutlets.h"
