#include "controls/validation_tracker.h"

#include "support/test.h"

namespace {

struct CountedHook final : quorvel::FocusHook {
    bool Set() override {
        ++sets;
        return isGranted;
    }
    void Remove() override { ++removals; }
    bool isGranted = true;
    int sets = 0;
    int removals = 0;
};

HWND Window(INT_PTR number) {
    return reinterpret_cast<HWND>(number);
}

} // namespace

TEST(ValidationTracker, HasItsHookWhileABalloonShows) {
    CountedHook hook;
    quorvel::ValidationTracker tracker(hook);
    const HWND first = Window(1);
    const HWND second = Window(2);
    ExpectCases<bool>({CASE(tracker.Hide(first), false), CASE(tracker.Show(nullptr), false),
                       CASE(tracker.Show(first), true),
                       CASE(tracker.Show(first), false), // a second balloon is refused
                       CASE(tracker.Show(second), true),
                       CASE(tracker.NumberOf(first) != tracker.NumberOf(second), true),
                       CASE(tracker.Hide(first), true), CASE(tracker.HasHook(), true),
                       CASE(tracker.Hide(first), false), // a late notification
                       CASE(tracker.Hide(second), true), CASE(tracker.HasHook(), false)});
    EXPECT_EQ(hook.sets, 1);
    EXPECT_EQ(hook.removals, 1);

    hook.isGranted = false;
    EXPECT_TRUE(tracker.Show(first));
    hook.isGranted = true;
    EXPECT_TRUE(tracker.Show(second)); // a second attempt
    EXPECT_TRUE(tracker.Hide(first) && tracker.Hide(second));
    EXPECT_EQ(hook.sets, 3);
    EXPECT_EQ(hook.removals, 2);
}

TEST(ValidationTracker, FindsTheDialogThatAFocusChangeConcerns) {
    // A sheet 1 with pages 2 and 3; a control 4 on page 2 with an edit 5 in it; a button 6 of the
    // sheet; and a dialog 7 with a control 8.
    const auto parentOf = [](HWND window) {
        const int parents[] = {0, 0, 1, 1, 2, 4, 1, 0, 7};
        const auto number = reinterpret_cast<INT_PTR>(window);
        return Window(number < 9 ? parents[number] : 0);
    };
    CountedHook hook;
    quorvel::ValidationTracker tracker(hook);
    const auto dialogOf = [&](INT_PTR window) {
        return tracker.DialogOf(Window(window), parentOf);
    };
    tracker.Show(Window(2), Window(9)); // owned by the sheet
    tracker.Show(Window(7));
    ExpectCases<HWND>({CASE(dialogOf(5), Window(2)), CASE(dialogOf(3), nullptr),
                       CASE(dialogOf(6), nullptr), CASE(dialogOf(8), Window(7)),
                       CASE(dialogOf(9), Window(2)),
                       CASE(dialogOf(7), nullptr), // the dialog is not its own parent
                       CASE(dialogOf(0), nullptr)});
    tracker.Show(Window(1));
    EXPECT_EQ(dialogOf(5), Window(2)); // the nearest one
    tracker.Hide(Window(2));
    EXPECT_EQ(dialogOf(5), Window(1));
}
