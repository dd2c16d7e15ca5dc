#include <quorvel/frame/win/vask_static.h>

IMPLEMENT_DYNAMIC(CVaskStatic, CStatic)
