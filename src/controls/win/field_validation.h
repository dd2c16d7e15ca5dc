// The common code of dialogs and property pages: validating and saving, the state of declared
// controls, and their fonts. `Owner` is the class whose virtual operations decide. It names these
// classes as friends.
#pragma once

#include <quorvel/controls/win/auto_complete_edit.h>
#include <quorvel/controls/win/vask_list_ctrl.h>
#include <quorvel/framework/win/gdi.h>
#include <quorvel/res/message_ids.h>

#include "controls/win/validation_balloon.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace quorvel {

// The initial number of places for declarations.
constexpr UINT kStateMapSize = 17;

// Whether the window still belongs to this object. The host's code may have destroyed the window,
// and the object with it. An object without a window cannot lose it.
inline bool StillHasWindow(const CWnd* wnd, HWND window) {
    return window == nullptr || CWnd::FromHandlePermanent(window) == wnd;
}

class StateControls {
public:
    // Saves or loads every declared control, between the owner's hooks.
    template <class Owner>
    static void Save(Owner& owner) {
        owner.PreSaveStateControls();
        ForEach(owner, TRUE, [&owner](auto* control, const auto& place) {
            if (IsSaved(owner.m_loadedLists, *control))
                SaveAt(*control, place);
        });
        owner.PostSaveStateControls();
    }
    // Returns false if a hook has destroyed the owner's window, and maybe the owner.
    template <class Owner>
    static bool Load(Owner& owner) {
        const HWND window = owner.m_hWnd;
        owner.m_loadedLists.clear();
        owner.PreLoadStateControls();
        if (!StillHasWindow(&owner, window))
            return false;
        ForEach(owner, FALSE, [&owner](auto* control, const auto& place) {
            if (IsLoaded(owner.m_loadedLists, *control))
                LoadAt(*control, place);
        });
        owner.PostLoadStateControls();
        return StillHasWindow(&owner, window);
    }

private:
    typedef std::vector<const CVaskListCtrl*> Lists;

    static bool IsLoaded(Lists&, CAutoCompleteEdit&) { return true; }
    // A list without a window has no columns.
    static bool IsLoaded(Lists& loaded, CVaskListCtrl& list) {
        if (list.m_hWnd != nullptr)
            loaded.push_back(&list);
        return list.m_hWnd != nullptr;
    }
    // If the host has disabled auto-completion, the former state is kept.
    static bool IsSaved(const Lists&, CAutoCompleteEdit& edit) {
        return edit.IsAutoCompletionEnabled();
    }
    // Saving a list that was not loaded would overwrite its state.
    static bool IsSaved(const Lists& loaded, CVaskListCtrl& list) {
        return list.m_hWnd != nullptr && std::ranges::find(loaded, &list) != loaded.end();
    }

    // The host owns a declared key: its hooks open and close it.
    template <class Control>
    static void SaveAt(Control& control, HKEY key) {
        control.SaveState(key, FALSE);
    }
    template <class Control, class Place>
    static void SaveAt(Control& control, const Place& place) {
        control.SaveState(place);
    }
    template <class Control>
    static void LoadAt(Control& control, HKEY key) {
        control.LoadState(key, FALSE);
    }
    template <class Control, class Place>
    static void LoadAt(Control& control, const Place& place) {
        control.LoadState(place);
    }

    template <class Control, class Place, class ArgPlace, class Action>
    static void ForEachOf(const CMap<Control*, Control*, Place, ArgPlace>& map, Action action) {
        Control* control = nullptr;
        Place place{};
        for (POSITION next = map.GetStartPosition(); next != nullptr;) {
            map.GetNextAssoc(next, control, place);
            if (control != nullptr)
                action(control, place);
        }
    }

    template <class Owner, class Action>
    static void ForEach(Owner& owner, int isSaving, Action action) {
        EditKeys editKeys;
        EditSections editSections;
        ListKeys listKeys;
        ListSections listSections;
        ListPaths listPaths;
        editKeys.InitHashTable(kStateMapSize);
        editSections.InitHashTable(kStateMapSize);
        listKeys.InitHashTable(kStateMapSize);
        listSections.InitHashTable(kStateMapSize);
        listPaths.InitHashTable(kStateMapSize);
        owner.GetStateAutoCompleteEditCtrls(editKeys, isSaving);
        owner.GetStateAutoCompleteEditCtrls(editSections, isSaving);
        owner.GetStateListCtrls(listKeys, isSaving);
        owner.GetStateListCtrls(listSections, isSaving);
        owner.GetStateListCtrls(listPaths, isSaving);
        ForEachOf(editKeys, action);
        ForEachOf(editSections, action);
        ForEachOf(listKeys, action);
        ForEachOf(listSections, action);
        ForEachOf(listPaths, action);
    }
};

class FieldValidation {
public:
    // Returns whether the data is valid. If not, the balloon shows the reason.
    template <class Owner>
    static BOOL Validate(Owner& owner) {
        const HWND window = owner.m_hWnd;
        Refusal refusal = {TTI_WARNING, {}, {}, CRect(0, 0, 0, 0)};
        refusal.title.LoadString(kTextValidationError);
        if (owner.ValidateData(refusal.icon, refusal.title, refusal.text, refusal.rect))
            return StillHasWindow(&owner, window);
        if (StillHasWindow(&owner, window))
            owner.ShowValidationErrorMessage(refusal.icon, refusal.title, refusal.text,
                                             refusal.rect);
        return FALSE;
    }
    // Hides the former balloon first: its field may be valid now, and the balloon would hide itself
    // when ValidateData sets the focus.
    template <class Owner>
    static BOOL ValidateAndSave(Owner& owner) {
        owner.HideValidationErrorMessage();
        return (owner.m_hWnd == nullptr || owner.UpdateData(TRUE)) && Validate(owner) &&
               owner.SaveData();
    }
    // Creates the bold variant of the window's font again and sets it in the controls that want it.
    // Controls that had it before (`boldIds`) get the window's font.
    template <class Owner>
    static void UpdateFonts(Owner& owner, CFont& boldFont, std::vector<int>& boldIds) {
        std::vector<int> ids;
        owner.GetBoldControlIDs(ids);
        CFont* const font = owner.GetFont();
        CFont former; // lives until no control uses it
        former.Attach(boldFont.Detach());
        LOGFONTW description;
        if (!ids.empty() && font != nullptr && font->GetLogFont(&description)) {
            description.lfWeight = FW_BOLD;
            boldFont.CreateFontIndirect(&description);
        }
        const auto setFont = [&](int id, CFont* changed) {
            if (CWnd* const control = owner.GetDlgItem(id))
                control->SetFont(changed);
        };
        for (const int id : std::exchange(boldIds, ids)) {
            if (std::find(ids.begin(), ids.end(), id) == ids.end())
                setFont(id, font);
        }
        for (const int id : ids)
            setFont(id, boldFont.GetSafeHandle() != nullptr ? &boldFont : font);
    }
};

} // namespace quorvel
