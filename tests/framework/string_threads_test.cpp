#include <quorvel/framework/string.h>

#include "support/test.h"

#include <atomic>
#include <thread>

TEST(StringThreads, CopiesOfOneTextAreChangedAndDroppedOnManyThreads) {
    const CString original(_T("shared"));
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    for (const WCHAR letter : {'a', 'b', 'c', 'd'})
        // Each thread has its own copy; all copies share one text.
        threads.emplace_back([mine = original, letter, &wrong] {
            for (int round = 0; round < 2000; ++round) {
                CString first(mine), second(first);
                first.AppendChar(letter);
                if (first != CString(_T("shared")) + letter || second != _T("shared"))
                    ++wrong;
                second = std::move(first);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(original, _T("shared"));
}
