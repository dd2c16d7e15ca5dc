// A script of keys and clicks for the windows of this program, and a print of what they show.
#pragma once

#include <quorvel/framework/string.h>

#include <functional>
#include <vector>

class Script {
public:
    typedef std::function<void(HWND box)> Step;

    // Without a folder pictures are passed over. `set` ends their names.
    Script(CString pictureFolder, CString set);
    Script(const Script&) = delete;
    ~Script();

    // Steps are played one after another from inside the message loops that are then running, each
    // with the front dialog box, once the input of the step before was handled and no work runs.
    void Add(Step step) { m_steps.push_back(std::move(step)); }
    void Heading(const char* text);
    // "Ctrl+F", as a keyboard sends it.
    void Keys(const char* keys);
    void Type(const WCHAR* text);
    void Click(int controlId);
    // A row of the list, or a part of its header.
    void ClickRow(int listId, int row);
    void ClickHeading(int listId, int column);
    void Show();                 // the front box: what it did not show the last time
    void ShowMenu(int position); // of the main window
    // Takes a picture of the front box. A set of pictures has only those that say so.
    void Picture(const char* name, bool isInEverySet = false);

    // Whether all were played; false also when a box was waited for in vain.
    bool IsDone() const { return m_next == m_steps.size(); }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD);
    void PlayNext();

    const CString m_pictureFolder;
    const CString m_set;
    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    int m_waited = 0;
    UINT_PTR m_timer;
};

void Say(const CString& text); // a line of the output, in UTF-8
