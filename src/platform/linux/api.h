// The closed list of Windows operations that the library calls on Linux, beyond those a host sees
// (quorvel/platform/linux_api.h). An operation is added together with its caller and with a row in
// tests/conformance, which runs in both builds. Nothing here is exported.
#pragma once

#include <quorvel/platform/linux_api.h>

#include "platform/linux/clock.h"
#include "platform/linux/crt.h"
#include "platform/linux/date_time.h"
#include "platform/linux/file.h"
#include "platform/linux/handle.h"
#include "platform/linux/letter_case.h"
#include "platform/linux/locale.h"
#include "platform/linux/message_box.h"
#include "platform/linux/message_format.h"
#include "platform/linux/module.h"
#include "platform/linux/path.h"
#include "platform/linux/socket.h"
#include "platform/linux/system_version.h"
#include "platform/linux/thread.h"
#include "platform/linux/version_info.h"
#include "platform/linux/wait.h"
#include "platform/linux/window.h"
