// Compares the simulated list-view with the system's.
#include "support/simulated_columns.h"
#include "support/test.h"

#include <random>

TEST(SimulatedColumns, BehaveAsTheSystemsDo) {
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    const HWND list = CreateWindowExW(0, WC_LISTVIEWW, nullptr, WS_POPUP | LVS_REPORT, 0, 0, 300,
                                      200, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(list, nullptr);
    const auto send = [list](UINT message, WPARAM first, LPARAM second) {
        return static_cast<int>(SendMessageW(list, message, first, second));
    };
    SimulatedColumns simulated;
    std::mt19937 random(3);
    for (int step = 0; step < 300; ++step) {
        const int count = simulated.GetCount();
        const int index = static_cast<int>(random() % 8) - 1;
        std::vector<int> order;
        int expected = 0;
        int actual = 0;
        switch (random() % (count > 5 ? 4 : 5)) {
        case 0:
            expected = simulated.Delete(index);
            actual = send(LVM_DELETECOLUMN, static_cast<WPARAM>(index), 0);
            break;
        case 1:
            simulated.SetWidth(index, 7 * step);
            send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(index), MAKELPARAM(7 * step, 0));
            break;
        case 2: // now and then one too long
            for (int i = 0; i < count; ++i)
                order.push_back(i);
            if (step % 5 == 0)
                order.push_back(count);
            std::shuffle(order.begin(), order.end(), random);
            expected = order.empty() ? 0 : simulated.SetOrder(order);
            actual = order.empty() ? 0
                                   : send(LVM_SETCOLUMNORDERARRAY, order.size(),
                                          reinterpret_cast<LPARAM>(order.data()));
            break;
        default: {
            quorvel::ColumnRecord column;
            column.width = step % 3 == 0 ? -1 : step;
            LVCOLUMNW inserted = {};
            inserted.mask = column.width >= 0 ? LVCF_WIDTH : 0u;
            inserted.cx = column.width;
            expected = simulated.Insert(index, column);
            actual = send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                          reinterpret_cast<LPARAM>(&inserted));
        }
        }
        ASSERT_EQ(actual, expected) << step;
        order.assign(static_cast<std::size_t>(simulated.GetCount()), -1);
        if (!order.empty())
            send(LVM_GETCOLUMNORDERARRAY, order.size(), reinterpret_cast<LPARAM>(order.data()));
        ASSERT_EQ(order, simulated.GetOrder()) << step;
        for (int i = 0; i < simulated.GetCount(); ++i)
            ASSERT_EQ(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(i), 0), simulated.GetWidth(i))
                << step << ", " << i;
    }
    DestroyWindow(list);
}
