// The box that shows the progress of a long operation.
#pragma once

#include <quorvel/framework/string.h>

#include <memory>

namespace quorvel {

constexpr int kProgressSteps = 1000; // steps of a full bar

// The window or terminal line of the box. The destructor removes it.
class ProgressView {
public:
    virtual ~ProgressView() = default;
    virtual void SetCaption(const CString& caption) = 0;
    virtual void SetStatus(const CString& status) = 0;
    virtual void SetStep(int step) = 0; // 0 to kProgressSteps; the first call shows the view
};

// Over the main window of this thread, or on the terminal; null where both are missing.
std::unique_ptr<ProgressView> CreateProgressView();

// The content of the box. Without a view the other members do nothing. User-interface thread.
class ProgressBox {
public:
    bool Create() { return Create(CreateProgressView()); }
    bool Create(std::unique_ptr<ProgressView> view); // false without a view

    void SetCaption(const CString& caption);
    void SetStatus(const CString& status);
    void SetRange(ULONGLONG range); // from 0; the position starts over
    void SetPosition(ULONGLONG position);
    void AdvanceBy(ULONGLONG amount);

private:
    std::unique_ptr<ProgressView> m_view;
    ULONGLONG m_range = 0;
    ULONGLONG m_position = 0;
    int m_shownStep = -1; // a step that looks the same is not drawn again
};

} // namespace quorvel
