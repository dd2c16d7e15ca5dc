#include <quorvel/frame/vask_message_box.h>

#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "frame/vask_box.h"
#include "platform/win32.h"

#include <cstdarg>

namespace {

// A text from the caller, or the id of a catalogue text.
class TextSource {
public:
    TextSource(const WCHAR* text) : m_text(text) {}
    TextSource(UINT id) : m_id(id), m_fromCatalogue(true) {}

    bool Load(CString& text) const {
        if (m_fromCatalogue)
            return text.LoadString(m_id) != FALSE;
        text = m_text;
        return AfxIsValidString(m_text) != FALSE;
    }

private:
    const WCHAR* m_text = nullptr;
    UINT m_id = 0;
    bool m_fromCatalogue = false;
};

struct Request {
    std::optional<TextSource> heading = {};
    TextSource text;
    std::optional<TextSource> checkBoxText = {};
    int* checkState = nullptr; // null without a check box
    UINT type;
    const WCHAR* helpTarget;
};

bool LoadOptional(const std::optional<TextSource>& source, std::optional<CString>& text) {
    return !source || source->Load(text.emplace());
}

bool Compose(const Request& request, va_list* inserts, quorvel::VaskBox& box) {
    if (!LoadOptional(request.heading, box.heading) || !request.text.Load(box.text) ||
        !LoadOptional(request.checkBoxText, box.checkBoxText))
        return false;
    if (inserts != nullptr) {
        const CString format = box.text;
        box.text.FormatMessageV(format, inserts);
    }
    box.type = request.type;
    if (request.helpTarget != nullptr) {
        box.helpTarget = request.helpTarget;
        if (request.checkState == nullptr)
            box.type |= MB_HELP;
    }
    if (request.checkState != nullptr && *request.checkState == 1)
        box.checkState = 1;
    return true;
}

// Catches the framework's exceptions from composing, but not those from the host's message box.
int Show(const Request& request, va_list* inserts = nullptr) {
    quorvel::VaskBox box;
    try {
        if (!Compose(request, inserts, box))
            return 0;
    } catch (CException* exception) {
        exception->Delete();
        return 0;
    }
    const int result = quorvel::ShowVaskBox(box);
    if (request.checkState != nullptr)
        *request.checkState = box.checkState;
    return result;
}

} // namespace

int AfxVaskMessageBox(const WCHAR* text, UINT type, const WCHAR* helpTarget) {
    return Show({.text = text, .type = type, .helpTarget = helpTarget});
}

int AfxVaskMessageBox(UINT textId, UINT type, const WCHAR* helpTarget) {
    return Show({.text = textId, .type = type, .helpTarget = helpTarget});
}

int AfxVaskMessageBox(const WCHAR* heading, const WCHAR* text, UINT type, const WCHAR* helpTarget) {
    return Show({.heading = heading, .text = text, .type = type, .helpTarget = helpTarget});
}

int AfxVaskMessageBox(UINT headingId, UINT textId, UINT type, const WCHAR* helpTarget) {
    return Show({.heading = headingId, .text = textId, .type = type, .helpTarget = helpTarget});
}

int AfxVaskMessageBox(const WCHAR* text, const WCHAR* checkBoxText, int& checkState, UINT type,
                      const WCHAR* helpTarget) {
    return Show({.text = text,
                 .checkBoxText = checkBoxText,
                 .checkState = &checkState,
                 .type = type,
                 .helpTarget = helpTarget});
}

int AfxVaskMessageBox(UINT textId, UINT checkBoxTextId, int& checkState, UINT type,
                      const WCHAR* helpTarget) {
    return Show({.text = textId,
                 .checkBoxText = checkBoxTextId,
                 .checkState = &checkState,
                 .type = type,
                 .helpTarget = helpTarget});
}

int AfxVaskMessageBox(const WCHAR* heading, const WCHAR* text, const WCHAR* checkBoxText,
                      int& checkState, UINT type, const WCHAR* helpTarget) {
    return Show({.heading = heading,
                 .text = text,
                 .checkBoxText = checkBoxText,
                 .checkState = &checkState,
                 .type = type,
                 .helpTarget = helpTarget});
}

int AfxVaskMessageBox(UINT headingId, UINT textId, UINT checkBoxTextId, int& checkState, UINT type,
                      const WCHAR* helpTarget) {
    return Show({.heading = headingId,
                 .text = textId,
                 .checkBoxText = checkBoxTextId,
                 .checkState = &checkState,
                 .type = type,
                 .helpTarget = helpTarget});
}

int AfxFormatStringVaskMessageBox(const WCHAR* format, UINT type, const WCHAR* helpTarget, ...) {
    va_list inserts;
    va_start(inserts, helpTarget);
    const int result = Show({.text = format, .type = type, .helpTarget = helpTarget}, &inserts);
    va_end(inserts);
    return result;
}

int AfxFormatStringVaskMessageBox(UINT formatId, UINT type, const WCHAR* helpTarget, ...) {
    va_list inserts;
    va_start(inserts, helpTarget);
    const int result = Show({.text = formatId, .type = type, .helpTarget = helpTarget}, &inserts);
    va_end(inserts);
    return result;
}

int AfxFormatStringVaskMessageBox(const WCHAR* heading, const WCHAR* format, UINT type,
                                  const WCHAR* helpTarget, ...) {
    va_list inserts;
    va_start(inserts, helpTarget);
    const int result = Show(
        {.heading = heading, .text = format, .type = type, .helpTarget = helpTarget}, &inserts);
    va_end(inserts);
    return result;
}

int AfxFormatStringVaskMessageBox(UINT headingId, UINT formatId, UINT type, const WCHAR* helpTarget,
                                  ...) {
    va_list inserts;
    va_start(inserts, helpTarget);
    const int result = Show(
        {.heading = headingId, .text = formatId, .type = type, .helpTarget = helpTarget}, &inserts);
    va_end(inserts);
    return result;
}

int AfxFormatStringVaskMessageBox(const WCHAR* format, const WCHAR* checkBoxText, int& checkState,
                                  UINT type, const WCHAR* helpTarget, ...) {
    va_list inserts;
    va_start(inserts, helpTarget);
    const int result = Show({.text = format,
                             .checkBoxText = checkBoxText,
                             .checkState = &checkState,
                             .type = type,
                             .helpTarget = helpTarget},
                            &inserts);
    va_end(inserts);
    return result;
}

int AfxFormatStringVaskMessageBox(UINT formatId, UINT checkBoxTextId, int& checkState, UINT type,
                                  const WCHAR* helpTarget, ...) {
    va_list inserts;
    va_start(inserts, helpTarget);
    const int result = Show({.text = formatId,
                             .checkBoxText = checkBoxTextId,
                             .checkState = &checkState,
                             .type = type,
                             .helpTarget = helpTarget},
                            &inserts);
    va_end(inserts);
    return result;
}

int AfxFormatStringVaskMessageBox(const WCHAR* heading, const WCHAR* format,
                                  const WCHAR* checkBoxText, int& checkState, UINT type,
                                  const WCHAR* helpTarget, ...) {
    va_list inserts;
    va_start(inserts, helpTarget);
    const int result = Show({.heading = heading,
                             .text = format,
                             .checkBoxText = checkBoxText,
                             .checkState = &checkState,
                             .type = type,
                             .helpTarget = helpTarget},
                            &inserts);
    va_end(inserts);
    return result;
}

int AfxFormatStringVaskMessageBox(UINT headingId, UINT formatId, UINT checkBoxTextId,
                                  int& checkState, UINT type, const WCHAR* helpTarget, ...) {
    va_list inserts;
    va_start(inserts, helpTarget);
    const int result = Show({.heading = headingId,
                             .text = formatId,
                             .checkBoxText = checkBoxTextId,
                             .checkState = &checkState,
                             .type = type,
                             .helpTarget = helpTarget},
                            &inserts);
    va_end(inserts);
    return result;
}

void AfxPerformDivideByZeroException() {
    const int answer =
        AfxVaskMessageBox(quorvel::kTextCrashWarning, quorvel::kTextCrashWarningDivideByZero,
                          MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2, nullptr);
    if (answer != IDYES)
        return;
    // Volatile: the compiler would remove a division that it can evaluate.
    volatile int dividend = 1;
    volatile int divisor = 0;
    dividend = dividend / divisor;
}
