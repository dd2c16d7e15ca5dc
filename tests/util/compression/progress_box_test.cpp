#include "util/compression/progress_box.h"

#include "support/test.h"

namespace {

struct StepsNoted : quorvel::ProgressView {
    explicit StepsNoted(std::vector<int>& steps) : m_steps(steps) {}
    void SetCaption(const CString&) override {}
    void SetStatus(const CString&) override {}
    void SetStep(int step) override { m_steps.push_back(step); }
    std::vector<int>& m_steps;
};

} // namespace

TEST(ProgressBox, ShowsEachStepOnceAndNeverPassesTheEnd) {
    constexpr ULONGLONG kHuge = 1ull << 63;
    const std::tuple<ULONGLONG, std::vector<ULONGLONG>, std::vector<int>> rows[] = {
        {4, {1, 1, 1, 1}, {0, 250, 500, 750, 1000}},
        {100000, {1, 1, 97, 1, 1}, {0, 1}}, // the change is invisible
        {10, {9, 9, 9, ~0ull}, {0, 900, 1000}},
        {0, {5}, {0}},
        {kHuge, {kHuge / 2, kHuge / 4, kHuge}, {0, 500, 750, 1000}},
    };
    for (const auto& [range, amounts, expected] : rows) {
        std::vector<int> steps;
        quorvel::ProgressBox box;
        box.AdvanceBy(1); // there is no display yet
        ASSERT_TRUE(box.Create(std::make_unique<StepsNoted>(steps)));
        box.SetRange(range);
        for (const ULONGLONG amount : amounts)
            box.AdvanceBy(amount);
        EXPECT_EQ(steps, expected) << range;
    }
}
