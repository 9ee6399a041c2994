// The builder's published properties.

#include "builder/VdCustomVandor.h"

#include "builder/VdPageControl.h"
#include "builder/VdQtText.h"
#include "panels/VdSelectGrid.h"
#include "panels/VdSelectPanel.h"

#include <QSplitter>

namespace vd {

namespace {

QStringList ToQStringList(const TVdWordList& words)
{
    QStringList list;
    list.reserve(words.Count());
    for (const std::string& word : words.Items())
        list.append(ToQString(word));
    return list;
}

TVdWordList ToWordList(const QStringList& list)
{
    TVdWordList words;
    for (const QString& line : list)
        words.Add(ToStdString(line));
    return words;
}

TVdWordList SortedDefault(const std::string& defaultCommaText)
{
    TVdWordList defaults;
    defaults.SetCommaText(defaultCommaText);
    defaults.Sort();
    return defaults;
}

// A list is stored when its comma text differs from that of its default list sorted.
bool DiffersFromDefault(const TVdWordList& current, const std::string& defaultCommaText)
{
    return current.GetCommaText() != SortedDefault(defaultCommaText).GetCommaText();
}

} // namespace

QStringList TCustomVandor::GetAggregates() const { return ToQStringList(FParser->Aggregates()); }

void TCustomVandor::SetAggregates(const QStringList& value)
{
    if (value == GetAggregates())
        return;
    FParser->SetAggregates(ToWordList(value));
    if (FSelectPanel)
        FSelectPanel->Grid()->SetAggregates(GetAggregates());
}

void TCustomVandor::ResetAggregates()
{
    FParser->SetAggregates(SortedDefault(FParser->GetCommaAggregates()));
    if (FSelectPanel)
        FSelectPanel->Grid()->SetAggregates(GetAggregates());
}

bool TCustomVandor::IsAggregatesStored() const
{
    return DiffersFromDefault(FParser->Aggregates(), FParser->GetCommaAggregates());
}

QStringList TCustomVandor::GetFunctions() const
{
    return ToQStringList(FParser->Scanner().Functions());
}

void TCustomVandor::SetFunctions(const QStringList& value)
{
    if (value == GetFunctions())
        return;
    FParser->Scanner().SetFunctions(ToWordList(value));
    emit sqlChanged();
}

void TCustomVandor::ResetFunctions()
{
    FParser->Scanner().SetFunctions(SortedDefault(FParser->Scanner().GetCommaFunctions()));
}

bool TCustomVandor::IsFunctionsStored() const
{
    return DiffersFromDefault(FParser->Scanner().Functions(),
                              FParser->Scanner().GetCommaFunctions());
}

QStringList TCustomVandor::GetKeywords() const
{
    return ToQStringList(FParser->Scanner().Keywords());
}

void TCustomVandor::SetKeywords(const QStringList& value)
{
    if (value == GetKeywords())
        return;
    FParser->Scanner().SetKeywords(ToWordList(value));
    emit sqlChanged();
}

void TCustomVandor::ResetKeywords()
{
    FParser->Scanner().SetKeywords(SortedDefault(FParser->Scanner().GetCommaKeywords()));
}

bool TCustomVandor::IsKeywordsStored() const
{
    return DiffersFromDefault(FParser->Scanner().Keywords(), FParser->Scanner().GetCommaKeywords());
}

TVdOperators* TCustomVandor::GetOperators() const { return &FParser->Operators(); }

void TCustomVandor::SetOperators(TVdOperators* value)
{
    if (!value || value == &FParser->Operators())
        return;
    // The criteria views hold operators by reference: they let go first.
    BeginReload();
    FParser->SetOperators(*value);
    EndReload();
    emit sqlChanged();
}

void TCustomVandor::SetOptions(TVdOptions value) { FOptions = value; }

void TCustomVandor::SetPalette(TVdPalette* value)
{
    if (value && value != FPalette.get())
        FPalette->Assign(value);
}

void TCustomVandor::SetStyle(TVdStyle* value)
{
    if (value && value != FStyle.get())
        FStyle->Assign(value);
}

bool TCustomVandor::GetQuoteIdentifiers() const { return FParser->Scanner().QuoteIdentifiers(); }

void TCustomVandor::SetQuoteIdentifiers(bool value)
{
    if (value == GetQuoteIdentifiers())
        return;
    FParser->Scanner().SetQuoteIdentifiers(value);
    emit sqlChanged();
}

TVdScriptFormat TCustomVandor::GetScriptFormat() const { return FParser->ScriptFormat(); }

void TCustomVandor::SetScriptFormat(const TVdScriptFormat& value)
{
    if (value == FParser->ScriptFormat())
        return;
    FParser->SetScriptFormat(value);
    emit sqlChanged();
}

TVdParserErrorEvent TCustomVandor::GetOnParserError() const { return FParser->OnError; }

void TCustomVandor::SetOnParserError(TVdParserErrorEvent event)
{
    FParser->OnError = std::move(event);
}

void TCustomVandor::SetTabHeight(int value)
{
    // Deliberately: the pages never shrink below their first height.
    if (value <= DefTabHeight || value == FTabHeight)
        return;
    FTabHeight = value;
    ApplyTabHeight();
}

void TCustomVandor::ResetTabHeight()
{
    FTabHeight = DefTabHeight;
    ApplyTabHeight();
}

void TCustomVandor::SetVisibleTabs(TVdVisibleTabs value)
{
    if (value == FVisibleTabs)
        return;
    const bool hadPages = FVisibleTabs.toInt() != 0;
    FVisibleTabs = value;
    if (!FPageControl)
        return;
    TVdPageControl* pages = FPageControl;
    pages->Quietly([&] {
        // With every tab hidden no sheet is active, but the one that was comes back with
        // its tab.
        const int active = hadPages ? pages->currentIndex() : FHiddenActiveSheet;
        const TVdVisibleTab tabs[] = {vdtCriterions, vdtSelection, vdtGroupCriterions, vdtSorting};
        for (int sheet = 3; sheet >= 0; --sheet)
            if (sheet < pages->count())
                pages->setTabVisible(sheet, value.testFlag(tabs[sheet]));
        if (active >= 0) {
            int next = -1;
            if (pages->isTabVisible(active))
                next = active;
            // The next visible sheet after it, wrapping; failing that, the next one before.
            for (int step = 1; next < 0 && step < pages->count(); ++step) {
                const int candidate = (active + step) % pages->count();
                if (pages->isTabVisible(candidate))
                    next = candidate;
            }
            for (int candidate = active - 1; next < 0 && candidate >= 0; --candidate)
                if (pages->isTabVisible(candidate))
                    next = candidate;
            if (next >= 0)
                pages->setCurrentIndex(next);
        }
        FHiddenActiveSheet = active;
    });
    pages->setVisible(value.toInt() != 0);
    if (QWidget* handle = SplitterHandle())
        handle->setVisible(pages->isVisibleTo(this) && FWorkArea);
}

} // namespace vd
