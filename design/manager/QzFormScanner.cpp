#include "design/manager/QzFormScanner.h"
