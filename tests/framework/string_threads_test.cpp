#include <quorvel/framework/string.h>

#include "support/test.h"

#include <atomic>
#include <thread>

TEST(StringThreads, CopiesOfOneTextAreChangedAndDroppedOnManyThreads) {
    const CString original(_T("shared"));
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        // Each thread has its own copy; all copies share one text.
        threads.emplace_back([mine = original, number, &wrong] {
            CString expected(_T("shared"));
            expected.AppendFormat(_T("%d"), number);
            for (int round = 0; round < 2000; ++round) {
                CString first(mine);
                CString second(first);
                first.AppendChar(static_cast<WCHAR>('0' + number));
                if (first != expected || second != _T("shared") || mine != second)
                    ++wrong;
                second = std::move(first);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(original, _T("shared"));
}
