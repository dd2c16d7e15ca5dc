// What dialogs and property pages do alike: the step from validation to saving, the state of the
// controls they declare, and their fonts. `Owner` is the class whose virtual operations decide; it
// names these as friends.
#pragma once

#include <quorvel/controls/win/auto_complete_edit.h>
#include <quorvel/controls/win/vask_list_ctrl.h>
#include <quorvel/framework/win/gdi.h>
#include <quorvel/res/message_ids.h>

#include "controls/win/validation_balloon.h"

#include <commctrl.h>

namespace quorvel {

// The declarations have this many places to start with.
constexpr UINT kStateMapSize = 17;

class StateControls {
public:
    // Between the owner's hooks, every declared control is saved or loaded.
    template <class Owner>
    static void Save(Owner& owner) {
        owner.PreSaveStateControls();
        ForEach(owner, TRUE, [](auto* control, const auto& place) {
            if (IsSaved(*control))
                SaveAt(*control, place);
        });
        owner.PostSaveStateControls();
    }
    template <class Owner>
    static void Load(Owner& owner) {
        owner.PreLoadStateControls();
        ForEach(owner, FALSE, [](auto* control, const auto& place) { LoadAt(*control, place); });
        owner.PostLoadStateControls();
    }

private:
    // A host that switched auto-completion off keeps the state of before.
    static bool IsSaved(CAutoCompleteEdit& edit) { return edit.IsAutoCompletionEnabled(); }
    static bool IsSaved(CVaskListCtrl&) { return true; }

    // A declared key stays the host's: its hooks open and close it.
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
        EditKeys editKeys(kStateMapSize);
        EditSections editSections(kStateMapSize);
        ListKeys listKeys(kStateMapSize);
        ListSections listSections(kStateMapSize);
        ListPaths listPaths(kStateMapSize);
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
    // Whether the data is valid; otherwise the balloon says why not.
    template <class Owner>
    static BOOL Validate(Owner& owner) {
        UINT icon = TTI_WARNING;
        CString title;
        CString text;
        CRect rect(0, 0, 0, 0);
        title.LoadString(kTextValidationError);
        if (owner.ValidateData(icon, title, text, rect))
            return TRUE;
        owner.ShowValidationErrorMessage(icon, title, text, rect);
        return FALSE;
    }
    template <class Owner>
    static BOOL ValidateAndSave(Owner& owner) {
        return Validate(owner) && owner.SaveData();
    }
    // The bold variant of the window's font, made anew, for the controls that ask for it.
    template <class Owner>
    static void UpdateFonts(Owner& owner, CFont& boldFont) {
        std::vector<int> ids;
        owner.GetBoldControlIDs(ids);
        const CFont* const font = owner.GetFont();
        LOGFONTW description;
        if (ids.empty() || font == nullptr || !font->GetLogFont(&description))
            return;
        description.lfWeight = FW_BOLD;
        CFont former; // until no control uses it any more
        former.Attach(boldFont.Detach());
        boldFont.CreateFontIndirect(&description);
        for (const int id : ids) {
            if (CWnd* const control = owner.GetDlgItem(id))
                control->SetFont(&boldFont);
        }
    }
};

} // namespace quorvel
