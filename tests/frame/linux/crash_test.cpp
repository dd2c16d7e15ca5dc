// Here alone: under Wine a crash takes its debugger seconds.
#include <quorvel/frame/vask_message_box.h>

#include "support/message_box_recorder.h"

#include <gtest/gtest.h>

TEST(CrashDeathTest, ComesOnYes) {
    MessageBoxRecorder recorder(IDYES);
    EXPECT_DEATH(AfxPerformDivideByZeroException(), "");
}
