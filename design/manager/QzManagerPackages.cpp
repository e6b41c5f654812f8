#include "design/manager/QzManagerPackages.h"
