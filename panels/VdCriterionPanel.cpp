#include "panels/VdCriterionPanel.h"

#include "builder/VdQtText.h"
#include "core/VdSelectParser.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace vd {

namespace {

// Every identifier under node that is qualified by oldAlias gets newAlias instead.
void RenameQualifier(TVdFunctionDef& node, const std::string& newAlias, const std::string& oldAlias)
{
    const std::string prefix = oldAlias + ".";
    if (node.Kind() == fkIdentifier && node.Name().compare(0, prefix.size(), prefix) == 0)
        node.SetName(newAlias + "." + node.Name().substr(prefix.size()));
    if (const TVdFunctionDefs* arguments = node.ArgumentList())
        for (int i = 0; i < arguments->Count(); ++i)
            RenameQualifier(*arguments->Items(i), newAlias, oldAlias);
}

void RenameQualifiers(TVdCriterions& list, const std::string& newAlias, const std::string& oldAlias)
{
    for (int i = 0; i < list.Count(); ++i) {
        TVdCriterion* criterion = list.Items(i);
        if (criterion->IsGroup()) {
            RenameQualifiers(criterion->SubItems(), newAlias, oldAlias);
            continue;
        }
        RenameQualifier(criterion->LeftSide(), newAlias, oldAlias);
        for (int j = 0; j < criterion->RightSide().Count(); ++j)
            RenameQualifier(*criterion->RightSide().Items(j), newAlias, oldAlias);
    }
}

// The builder passes aliases as the scanner prints them ("C" quoted); the model keeps them
// as written. "C" -> C, "A""B" -> A"B.
std::string Unquoted(const TVdSQLScanner& scanner, const std::string& alias)
{
    const char quote = scanner.GetIdentQuote();
    if (alias.size() < 2 || alias.front() != quote || alias.back() != quote)
        return alias;
    std::string inner;
    for (size_t i = 1; i + 1 < alias.size(); ++i) {
        inner += alias[i];
        if (alias[i] == quote && alias[i + 1] == quote)
            ++i;
    }
    return inner;
}

} // namespace

TVdCriterionPanel::TVdCriterionPanel(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    FText = new QPlainTextEdit(this);
    FText->setReadOnly(true);
    FText->setLineWrapMode(QPlainTextEdit::NoWrap);
    layout->addWidget(FText);
}

void TVdCriterionPanel::SetParser(TVdSelectParser* parser) { FParser = parser; }

void TVdCriterionPanel::Activate() { FText->clear(); }

void TVdCriterionPanel::Clear() { FText->clear(); }

void TVdCriterionPanel::PrepareToReloadOperators() { FReloading = true; }

void TVdCriterionPanel::ReloadOperators()
{
    // Criteria keep their operator by its text, so only the view needs reading again.
    if (!FReloading)
        return;
    FReloading = false;
    RefreshRows();
}

void TVdCriterionPanel::ChangeAlias(const QString& newAlias, const QString& oldAlias)
{
    if (!FParser || newAlias == oldAlias)
        return;
    TVdCriterions& list = FUsesAggregates ? FParser->HavingItems() : FParser->WhereItems();
    const TVdSQLScanner& scanner = FParser->Scanner();
    RenameQualifiers(list, Unquoted(scanner, ToStdString(newAlias)),
                     Unquoted(scanner, ToStdString(oldAlias)));
    RefreshRows();
}

void TVdCriterionPanel::HideFieldList(QObject*, bool&)
{
    // This view opens no field list, so it never holds the page.
}

QString TVdCriterionPanel::Text() const { return FText->toPlainText(); }

void TVdCriterionPanel::ShowCriterions(const TVdCriterions* list)
{
    if (!list || list->Count() == 0) {
        FText->clear();
        return;
    }
    QString text = ToQString(list->GetScript());
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    FText->setPlainText(text.trimmed());
}

} // namespace vd
