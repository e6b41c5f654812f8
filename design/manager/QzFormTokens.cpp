#include "design/manager/QzFormTokens.h"
