#include "platform/linux/text/message_format.h"

#include <quorvel/platform/linux_api.h>

#include "platform/linux/text/crt_conversion.h"
#include "platform/linux/text/error_texts.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

namespace quorvel::win32 {

namespace {

using namespace quorvel::crt;

constexpr std::ptrdiff_t kMaximumForm = 30;

// The arguments by the numbers of the inserts. Keeps the arguments of a va_list, because a later
// insert may use an earlier one again.
class Inserts {
public:
    Inserts(DWORD flags, va_list* arguments) : m_available(arguments != nullptr) {
        if (!m_available)
            return;
        if (flags & FORMAT_MESSAGE_ARGUMENT_ARRAY) {
            m_array = reinterpret_cast<const ULONG_PTR*>(arguments);
            return;
        }
        va_copy(m_list.values, *arguments);
        m_copied = true;
    }
    ~Inserts() {
        if (m_copied)
            va_end(m_list.values);
    }
    Inserts(const Inserts&) = delete;
    Inserts& operator=(const Inserts&) = delete;

    bool AreAvailable() const { return m_available; }

    // Reads the arguments of the insert's stars and then its value.
    Argument Fetch(int number, Conversion& conversion) {
        int position = 0;
        const int last = conversion.widthIsArgument + conversion.precisionIsArgument;
        if (conversion.widthIsArgument)
            conversion.SetWidth(
                static_cast<int>(Slot(number, position++, last, ArgumentType::Pointer)));
        if (conversion.precisionIsArgument)
            conversion.SetPrecision(
                static_cast<int>(Slot(number, position++, last, ArgumentType::Pointer)));
        Argument argument;
        argument.type = TypeOfArgument(conversion);
        const long long value = Slot(number, position, last, argument.type);
        if (argument.type == ArgumentType::Pointer)
            argument.pointer = reinterpret_cast<const void*>(static_cast<ULONG_PTR>(value));
        else
            argument.integer = value;
        return argument;
    }

private:
    // The argument at a position of an insert; the value's position is the last one.
    long long Slot(int number, int position, int last, ArgumentType type) {
        if (m_array != nullptr)
            return static_cast<long long>(m_array[number - 1 + position]);
        if (position == 0) {
            const auto index = static_cast<std::size_t>(number - 1);
            while (m_read.size() < index)
                m_read.push_back(Read(ArgumentType::Pointer));
            if (m_read.size() == index)
                m_read.push_back(Read(type));
            return m_read[index];
        }
        // Deliberate: after a star the value replaces the argument read last, as the platform does
        // it. This shifts the numbers of all later inserts.
        if (position == last)
            m_read.pop_back();
        m_read.push_back(Read(type));
        return m_read.back();
    }

    long long Read(ArgumentType type) {
        if (type == ArgumentType::Integer64)
            return FetchArgument(m_list, type).integer;
        const Argument argument = FetchArgument(m_list, ArgumentType::Pointer);
        return static_cast<long long>(reinterpret_cast<ULONG_PTR>(argument.pointer));
    }

    bool m_available;
    bool m_copied = false;
    const ULONG_PTR* m_array = nullptr;
    ArgumentList m_list;
    std::vector<long long> m_read;
};

typedef std::basic_string<WCHAR> Text;

Text Widened(const char* ascii) {
    return Text(ascii, ascii + std::char_traits<char>::length(ascii));
}

class MessageBuilder {
public:
    MessageBuilder(DWORD flags, va_list* arguments)
        : m_inserts(flags, arguments), m_ignoreInserts(flags & FORMAT_MESSAGE_IGNORE_INSERTS),
          m_lineEnd(flags & FORMAT_MESSAGE_MAX_WIDTH_MASK ? _T(" ") : _T("\r\n")) {}

    // Returns false for a text that the platform refuses.
    bool Build(const WCHAR* source) {
        m_position = source;
        while (*m_position != 0) {
            if (*m_position != '%')
                AppendPlain();
            else if (m_position[1] == '0')
                break;
            else if (!AppendEscape())
                return false;
        }
        return m_text.size() < INT_MAX;
    }

    const Text& GetText() const { return m_text; }

private:
    void AppendPlain() {
        if (*m_position == '\r' || *m_position == '\n') {
            m_position += m_position[0] == '\r' && m_position[1] == '\n' ? 2 : 1;
            m_text += m_lineEnd;
            return;
        }
        const WCHAR* const first = m_position;
        while (*m_position != 0 && *m_position != '%' && *m_position != '\r' && *m_position != '\n')
            ++m_position;
        m_text.append(first, m_position);
    }

    bool AppendEscape() {
        const WCHAR character = *++m_position;
        if (character == 0)
            return false;
        if (character >= '1' && character <= '9' && !m_ignoreInserts)
            return AppendInsert();
        ++m_position;
        switch (character) {
        case 'n':
            m_text += _T("\r\n");
            break;
        case 'r':
            m_text += '\r';
            break;
        case 't':
            m_text += '\t';
            break;
        case 'b':
            m_text += ' ';
            break;
        default:
            if (m_ignoreInserts)
                m_text += '%';
            m_text += character;
        }
        return true;
    }

    bool AppendInsert() {
        int number = *m_position++ - '0';
        if (*m_position >= '0' && *m_position <= '9')
            number = number * 10 + (*m_position++ - '0');
        if (*m_position == '!') {
            ++m_position;
            return AppendForm(number);
        }
        Conversion conversion;
        conversion.type = 's';
        return AppendValue(number, conversion);
    }

    // Formats by a printf form without its percent sign: one conversion, then text.
    bool AppendForm(int number) {
        const WCHAR* const end = std::char_traits<WCHAR>::find(
            m_position, std::char_traits<WCHAR>::length(m_position), '!');
        if (end == nullptr || end - m_position > kMaximumForm)
            return false;
        if (*m_position == '%') {
            m_text += *m_position++; // the form has no percent sign of its own, so this is %%
        } else {
            Conversion conversion;
            m_position = ScanConversion(m_position, conversion);
            // The platform's formatter does not support floating point: the letter is text.
            if (TypeOfArgument(conversion) == ArgumentType::Double) {
                conversion.type = 0;
                --m_position;
            }
            if (conversion.type != 0 && !AppendValue(number, conversion))
                return false;
        }
        if (!AppendRestOfForm(end))
            return false;
        m_position = end + 1;
        return true;
    }

    // Copies the text after the conversion. A second conversion is refused: it has no argument.
    bool AppendRestOfForm(const WCHAR* end) {
        for (; m_position != end; ++m_position) {
            if (*m_position == '%' && *++m_position != '%')
                return false;
            m_text += *m_position;
        }
        return true;
    }

    bool AppendValue(int number, Conversion conversion) {
        if (!m_inserts.AreAvailable())
            return false;
        Argument argument = m_inserts.Fetch(number, conversion);
        Text converted;
        if (argument.type == ArgumentType::Pointer && conversion.type != 'p' &&
            argument.pointer != nullptr && !TakesWide<WCHAR>(conversion))
            Widen(conversion, argument, converted);
        return AppendPrinted(conversion, argument);
    }

    // Converts narrow text to wide text with the active code page. The precision counts
    // bytes.
    static void Widen(Conversion& conversion, Argument& argument, Text& converted) {
        const auto* const bytes = static_cast<const char*>(argument.pointer);
        const int count = static_cast<int>(
            std::min<std::size_t>(TerminatedLength(bytes, conversion.precision), INT_MAX));
        if (count > 0) {
            converted.resize(
                static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes, count, nullptr, 0)));
            MultiByteToWideChar(CP_ACP, 0, bytes, count, converted.data(),
                                static_cast<int>(converted.size()));
        }
        argument.pointer = converted.c_str();
        conversion.textWidth = Conversion::Width::Wide;
        conversion.precision = -1;
    }

    bool AppendPrinted(const Conversion& conversion, const Argument& argument) {
        Output<WCHAR> measured(nullptr, 0);
        PrintConversion(measured, conversion, argument);
        const std::size_t length = measured.GetLength();
        const std::size_t oldLength = m_text.size();
        if (measured.HasFailed() || length > INT_MAX - std::min<std::size_t>(oldLength, INT_MAX))
            return false;
        m_text.resize(oldLength + length);
        Output<WCHAR> written(m_text.data() + oldLength, length);
        PrintConversion(written, conversion, argument);
        return true;
    }

    Inserts m_inserts;
    bool m_ignoreInserts;
    const WCHAR* m_lineEnd;
    const WCHAR* m_position = nullptr;
    Text m_text;
};

DWORD Refuse(DWORD error) {
    SetLastError(error);
    return 0;
}

// Copies the text as far as it fits.
DWORD CopyOut(const Text& text, LPWSTR buffer, DWORD size) {
    if (size > 0) {
        const std::size_t count = std::min<std::size_t>(text.size(), size - 1);
        buffer[text.copy(buffer, count)] = 0;
    }
    if (text.size() >= size)
        return Refuse(ERROR_INSUFFICIENT_BUFFER);
    return text.empty() ? Refuse(ERROR_NO_WORK_DONE) : static_cast<DWORD>(text.size());
}

DWORD AllocateOut(const Text& text, LPWSTR* buffer, DWORD size) {
    if (text.empty())
        return Refuse(ERROR_NO_WORK_DONE);
    size = std::max(size, static_cast<DWORD>(text.size()) + 1);
    *buffer = static_cast<LPWSTR>(std::malloc(std::size_t{size} * sizeof(WCHAR)));
    return *buffer != nullptr ? CopyOut(text, *buffer, size) : Refuse(ERROR_NOT_ENOUGH_MEMORY);
}

// The code in an HRESULT of the system's facility, otherwise the id itself.
DWORD ErrorCode(DWORD messageId) {
    return (messageId & 0xffff0000) == 0x80070000 ? LOWORD(messageId) : messageId;
}

DWORD Format(DWORD flags, LPCVOID source, DWORD messageId, LPWSTR buffer, DWORD size,
             va_list* arguments) {
    const DWORD width = flags & FORMAT_MESSAGE_MAX_WIDTH_MASK;
    if (width != 0 && width != FORMAT_MESSAGE_MAX_WIDTH_MASK)
        return Refuse(ERROR_INVALID_PARAMETER);
    Text systemText;
    const auto* format = static_cast<const WCHAR*>(source);
    if (!(flags & FORMAT_MESSAGE_FROM_STRING)) {
        if (!(flags & FORMAT_MESSAGE_FROM_SYSTEM))
            return Refuse(ERROR_INVALID_PARAMETER);
        const char* const text = SystemErrorText(ErrorCode(messageId));
        if (text == nullptr)
            return Refuse(ERROR_MR_MID_NOT_FOUND);
        systemText = Widened(text) + _T("\r\n");
        format = systemText.c_str();
    }
    MessageBuilder builder(flags, arguments);
    if (format == nullptr || !builder.Build(format))
        return Refuse(ERROR_INVALID_PARAMETER);
    if (flags & FORMAT_MESSAGE_ALLOCATE_BUFFER)
        return AllocateOut(builder.GetText(), reinterpret_cast<LPWSTR*>(buffer), size);
    return CopyOut(builder.GetText(), buffer, size);
}

} // namespace

DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD, LPWSTR buffer, DWORD size,
                     va_list* arguments) {
    if (buffer == nullptr)
        return Refuse(ERROR_INVALID_PARAMETER);
    if (flags & FORMAT_MESSAGE_ALLOCATE_BUFFER)
        *reinterpret_cast<LPWSTR*>(buffer) = nullptr;
    try {
        return Format(flags, source, messageId, buffer, size, arguments);
    } catch (const std::bad_alloc&) {
        return Refuse(ERROR_NOT_ENOUGH_MEMORY);
    }
}

HLOCAL LocalFree(HLOCAL memory) {
    std::free(memory);
    return nullptr;
}

} // namespace quorvel::win32
