#include "util/compression/progress_box.h"

#include <algorithm>

namespace quorvel {

namespace {

// Uses floating point, where no product overflows: a range may have 64 bits.
int StepOf(ULONGLONG position, ULONGLONG range) {
    if (position >= range)
        return range > 0 ? kProgressSteps : 0;
    const double part = static_cast<double>(position) / static_cast<double>(range);
    return static_cast<int>(part * kProgressSteps);
}

} // namespace

bool ProgressBox::Create(std::unique_ptr<ProgressView> view) {
    m_view = std::move(view);
    m_shownStep = -1;
    return m_view != nullptr;
}

void ProgressBox::SetCaption(const CString& caption) {
    if (m_view != nullptr)
        m_view->SetCaption(caption);
}

void ProgressBox::SetStatus(const CString& status) {
    if (m_view != nullptr)
        m_view->SetStatus(status);
}

void ProgressBox::SetRange(ULONGLONG range) {
    m_range = range;
    SetPosition(0);
}

void ProgressBox::SetPosition(ULONGLONG position) {
    m_position = std::min(position, m_range);
    const int step = StepOf(m_position, m_range);
    if (m_view == nullptr || step == m_shownStep)
        return;
    m_shownStep = step;
    m_view->SetStep(step);
}

void ProgressBox::AdvanceBy(ULONGLONG amount) {
    SetPosition(m_position + std::min(amount, m_range - m_position));
}

} // namespace quorvel
