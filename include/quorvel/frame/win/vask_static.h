// CVaskStatic: the base of the library's static controls. Windows only, its window's thread.
#pragma once

#include <quorvel/framework/win/static.h>

class QUORVEL_API CVaskStatic : public CStatic {
    DECLARE_DYNAMIC(CVaskStatic)
};
