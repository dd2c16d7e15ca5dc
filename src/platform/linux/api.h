// The closed list of Windows operations that the library calls on Linux, in addition to those for
// hosts (quorvel/platform/linux_api.h). Add an operation together with its caller and with a row in
// tests/conformance, which runs in both builds. Nothing here is exported.
#pragma once

#include <quorvel/platform/linux_api.h>

#include "platform/linux/files/file_operations.h"
#include "platform/linux/files/path.h"
#include "platform/linux/keyboard/keyboard_layout.h"
#include "platform/linux/locale/collation.h"
#include "platform/linux/locale/date_format.h"
#include "platform/linux/locale/locale.h"
#include "platform/linux/locale/time_zone.h"
#include "platform/linux/net/socket.h"
#include "platform/linux/resources/pe_module.h"
#include "platform/linux/resources/version_info.h"
#include "platform/linux/system/system_version.h"
#include "platform/linux/text/crt.h"
#include "platform/linux/text/letter_case.h"
#include "platform/linux/text/message_format.h"
#include "platform/linux/waits/clock.h"
#include "platform/linux/waits/handle.h"
#include "platform/linux/waits/thread.h"
#include "platform/linux/waits/wait.h"
#include "platform/linux/windows/terminal_message_box.h"
#include "platform/linux/windows/window.h"
