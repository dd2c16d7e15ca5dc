// Pictures of modal boxes and dialogs.
#pragma once

#include "german.h"
#include "picture.h"
#include "support/win/dialog_driver.h"

#include <utility>

// Takes a picture in the language.
template <bool (*take)(const char* path)>
bool InGerman(const char* path) {
    const German german;
    return take(path);
}

inline const WCHAR* Own(const WCHAR* english, const WCHAR* german) {
    return German::IsInForce() ? german : english;
}

// Takes a picture of the box that `show` shows, after the steps, and cancels it.
template <class Show>
bool TakeBoxAfter(std::vector<DialogDriver::Step> steps, const char* path, Show show) {
    bool isTaken = false;
    steps.push_back([](HWND) {}); // until what the last one caused has been drawn
    steps.push_back([&](HWND box) { isTaken = SavePicture(box, path); });
    steps.push_back([](HWND box) { ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0); });
    const DialogDriver driver(std::move(steps));
    show();
    return isTaken;
}
