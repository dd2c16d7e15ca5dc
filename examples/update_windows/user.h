// A user at the keyboard, who works the dialogs that a thread shows and prints what is seen.
#pragma once

#include <quorvel/framework/string.h>

#include <functional>
#include <vector>

class User {
public:
    typedef std::function<void(HWND)> Step;

    // Takes the steps one after another, each when a dialog waits and nothing else is shown, and
    // answers each message box by the button of that id, or else by its OK. Everything that is
    // shown is printed: message boxes, the texts of progress panes, and balloons.
    User(std::vector<Step> steps, int answer);
    User(const User&) = delete;
    ~User();

    bool m_cancelsDownload = false; // by Escape, when some of it has come

private:
    void Look();
    void AnswerBox(HWND box);
    void Watch(const CWPSTRUCT& message);
    static LRESULT CALLBACK OnMessage(int code, WPARAM wParam, LPARAM lParam);

    std::vector<Step> m_steps;
    const int m_answer;
    UINT_PTR m_timer;
    HHOOK m_hook;
    int m_quietLooks = 0;
    HWND m_answered = nullptr;
    CString m_balloonText;
};

// Keys go to the control with the focus, by the queue of the thread.
void PressKey(UINT key);
User::Step Press(UINT key, const WCHAR* name);
User::Step PressAlt(WCHAR letter);
User::Step Type(const CString& text); // over what is selected
