#include "design/manager/QzPkgFilesReg.h"

void RegisterPkgFilesWindows()
{
}
