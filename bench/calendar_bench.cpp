// The n-th day of the week of a month, against Howard Hinnant's date library doing the same: all
// arguments checked, no such day found out, and the serial number of the day as a double.
#include <quorvel/util/calendar/calendar.h>

#include "allocation_count.h"

#include <benchmark/benchmark.h>
#include <date/date.h>

#include <array>
#include <random>

namespace {

struct Question {
    int month, year, dayOfWeek, ordinal;
};

// Months of the years 1900 to 2099. One question in five asks for a fifth weekday, which most
// months don't have.
const std::array<Question, 1024>& Questions() {
    static const auto s_questions = [] {
        std::array<Question, 1024> questions;
        std::mt19937 random(1);
        const auto below = [&](int limit) {
            return static_cast<int>(random() % static_cast<unsigned>(limit));
        };
        for (Question& question : questions)
            question = {1 + below(12), 1900 + below(200), 1 + below(7), 1 + below(5)};
        return questions;
    }();
    return s_questions;
}

double HinnantOrdinalDayOfWeek(const Question& question) {
    constexpr date::sys_days kDayZero{date::year(1899) / 12 / 30};
    const date::year_month_weekday day =
        date::year(question.year) / question.month /
        date::weekday(
            static_cast<unsigned>(question.dayOfWeek - 1))[static_cast<unsigned>(question.ordinal)];
    return day.ok() ? (date::sys_days(day) - kDayZero).count() : 0;
}

double OrdinalDayOfWeek(const Question& question) {
    return AfxGetOrdinalDayOfWeekInMonth(question.month, question.year, question.dayOfWeek,
                                         question.ordinal)
        .m_dt;
}

template <double (*ask)(const Question&)>
void Ordinals(benchmark::State& state) {
    for (const Question& question : Questions()) {
        if (ask(question) != HinnantOrdinalDayOfWeek(question)) {
            state.SkipWithError("a different day");
            return;
        }
    }
    AllocationCounter allocations(state);
    for (auto _ : state) {
        for (const Question& question : Questions())
            benchmark::DoNotOptimize(ask(question));
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * 1024);
}

void NextWeekdays(benchmark::State& state) {
    const COleDateTime date(2007, 3, 7, 0, 0, 0);
    int count = static_cast<int>(state.range(0));
    AllocationCounter allocations(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(count);
        benchmark::DoNotOptimize(AfxGetNextWeekday(date, count));
    }
}

BENCHMARK(Ordinals<OrdinalDayOfWeek>)->Name("OrdinalDay/Quorvel");
BENCHMARK(Ordinals<HinnantOrdinalDayOfWeek>)->Name("OrdinalDay/date");
BENCHMARK(NextWeekdays)->Arg(1)->Arg(1000000)->Arg(2000000000);

} // namespace
