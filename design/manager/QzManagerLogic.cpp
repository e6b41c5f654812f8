#include "design/manager/QzManagerLogic.h"
