#include <quorvel/controls/vask_event.h>

BOOL CVaskEvent::SetDescription(const WCHAR* description) {
    if (description == nullptr)
        return FALSE;
    m_description = description;
    return TRUE;
}
