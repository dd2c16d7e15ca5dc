// Makes the same script of calls directly on one document and through a session on another.
#pragma once

#include "xml/markup_probe.h"

#include <quorvel/xml/edit_session.h>

#include <cstdint>
#include <functional>
#include <iterator>
#include <span>

class SessionScript {
public:
    // A session refuses edits before its last edit; the script calculates this from the positions
    // of the direct edit. Returns "" if all results agree, otherwise what differs.
    static const char* Run(std::span<const std::uint8_t> script) {
        if (script.empty())
            return "";
        MarkupProbe direct(Pick(kDocuments, script[0]));
        MarkupProbe edited(direct);
        if (script[0] / std::size(kDocuments) % 2 != 0) // a session starts at the positions
            direct.FindChildElem(), edited.FindChildElem();
        const MarkupProbe before(edited);
        CMarkupEditSession session(edited);
        int lastEdited = 0;
        bool isPlain = direct.IsWellFormed(); // parsing the text again gives the same elements
        for (std::size_t i = 1; i < script.size() && i <= kMostSteps; ++i) {
            const unsigned operation = script[i] % kOperations;
            const unsigned choice = script[i] / kOperations;
            MarkupProbe trial(direct);
            const bool done = Step(trial, operation, choice);
            const int place = done ? PlaceOf(trial, operation) : 0;
            const bool refused = done && IsEdit(operation) && lastEdited != 0 &&
                                 IsBefore(direct, trial, place, lastEdited, operation);
            if (Step(session, operation, choice) != (done && !refused))
                return "the result";
            if (!refused)
                Step(direct, operation, choice);
            if (done && !refused && IsEdit(operation)) {
                lastEdited = place;
                isPlain = isPlain && IsPlain(choice);
                if (isPlain && direct.Tree() != MarkupProbe(direct.GetDoc()).Tree())
                    return "the index of a fresh parse";
            }
            if (!ReadsAlike(direct, session))
                return "what is read";
        }
        if (edited.GetDoc() != before.GetDoc() || edited.Position() != before.Position())
            return "the document before Commit";
        if (!session.Commit() || session.Commit() || session.AddElem(_T("late")) ||
            session.FindElem())
            return "the end of the session";
        if (edited.GetDoc() != direct.GetDoc())
            return "the text";
        if (edited.Tree() != direct.Tree() || edited.Position() != direct.Position() ||
            edited.RecordCount() != direct.RecordCount() ||
            edited.Record(0).nEndTagOpen != direct.Record(0).nEndTagOpen ||
            edited.Record(0).nEndTagClose != direct.Record(0).nEndTagClose)
            return "the index";
        return "";
    }

private:
    static constexpr std::size_t kMostSteps = 200;
    static constexpr unsigned kOperations = 11;
    static constexpr const WCHAR* kNames[] = {_T("a"), _T("bb"), _T("x.y"), _T("'q"), _T("c='")};
    static constexpr const WCHAR* kValues[] = {nullptr, _T(""), _T("t"), _T("<&>'\""),
                                               _T("<![CDATA[\"> <x>]]>")};
    static constexpr const WCHAR* kDocuments[] = {
        _T(""),
        _T("only text"),
        _T("<r/>"),
        _T("<r></r>"),
        _T("<?x?><r> <a bb='c'/> t <bb></bb>\n<a><a/><bb>t</bb></a>\n</r ><!--e-->"),
        _T("<r a='1'><a a='1>2'/><bb a='><a a=\"\"/>  <a>text</a></r>\r\n' <more/>"),
        _T("<r><a><a><a><a/></a> </a></a><bb x.y=\"long enough to shrink\"></bb></r>"),
    };

    static const WCHAR* Pick(std::span<const WCHAR* const> table, std::size_t choice) {
        return table[choice % table.size()];
    }

    template <class Document>
    static bool Step(Document& to, unsigned operation, unsigned choice) {
        const WCHAR* name = Pick(kNames, choice);
        const WCHAR* value = Pick(kValues, choice / std::size(kNames));
        const bool typed = choice % 3 == 2;
        const int number = static_cast<int>(choice);
        const WCHAR* const sought = choice % 4 == 0 ? name : nullptr;
        const std::function<bool()> steps[kOperations] = {
            [&] { return typed ? to.AddElem(name, number) : to.AddElem(name, value); },
            [&] { return to.AddChildElem(name, value); },
            [&] { return typed ? to.AddAttrib(name, number) : to.SetAttrib(name, value); },
            [&] { return typed ? to.AddChildAttrib(name, value) : to.SetChildAttrib(name, value); },
            [&] { return to.FindElem(sought); },
            [&] { return to.FindElem(sought); },
            [&] { return to.FindChildElem(sought); },
            [&] { return to.IntoElem(); },
            [&] { return to.OutOfElem(); },
            [&] { return to.ResetChildPos(), true; },
            [&] { return choice % 4 == 0 ? to.ResetPos() : to.ResetMainPos(), true; },
        };
        return steps[operation]();
    }

    // Quotes in a name and ">" in an attribute split the tag when the text is parsed again.
    static bool IsPlain(unsigned choice) {
        return choice % std::size(kNames) < 3 &&
               choice / std::size(kNames) % std::size(kValues) < 4;
    }
    static bool IsEdit(unsigned operation) { return operation < 4; }
    static bool IsAdd(unsigned operation) { return operation < 2; }
    // The element that an edit added or changed.
    static int PlaceOf(const MarkupProbe& markup, unsigned operation) {
        return markup.Position()[operation % 2 == 0 ? 1 : 2];
    }

    static bool IsBefore(const MarkupProbe& direct, const MarkupProbe& trial, int place,
                         int lastEdited, unsigned operation) {
        const int last = direct.Record(lastEdited).nTagOpen;
        if (!IsAdd(operation))
            return direct.Record(place).nTagOpen < last;
        const bool directlyBefore = trial.Record(place).nTagOpen == last &&
                                    trial.Record(place).iParent == trial.Record(lastEdited).iParent;
        return trial.Record(place).nTagOpen < trial.Record(lastEdited).nTagOpen && !directlyBefore;
    }

    static bool ReadsAlike(const MarkupProbe& direct, CMarkupEditSession& session) {
        bool alike = direct.IsWellFormed() == session.IsWellFormed() &&
                     direct.GetTagName() == session.GetTagName() &&
                     direct.GetChildTagName() == session.GetChildTagName() &&
                     direct.GetData() == session.GetData() &&
                     direct.GetChildData() == session.GetChildData();
        for (const WCHAR* name : kNames)
            alike = alike && direct.GetAttrib(name) == session.GetAttrib(name) &&
                    direct.GetChildAttrib(name) == session.GetChildAttrib(name);
        return alike;
    }
};
