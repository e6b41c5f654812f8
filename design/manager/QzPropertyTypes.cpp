#include "design/manager/QzPropertyTypes.h"
