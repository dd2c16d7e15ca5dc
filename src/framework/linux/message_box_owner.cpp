#include "framework/message_box_owner.h"

namespace quorvel {

HWND MessageBoxOwner() {
    return nullptr;
}

} // namespace quorvel
