#pragma once

// The view of one criteria list of the model (WHERE or HAVING). For now it shows the clause
// as the model prints it, read-only; the row editor extends this class.

#include <QWidget>

class QPlainTextEdit;

namespace vd {

class TVdCriterions;
class TVdSelectParser;

class TVdCriterionPanel : public QWidget
{
    Q_OBJECT

public:
    explicit TVdCriterionPanel(QWidget* parent = nullptr);

    TVdSelectParser* Parser() const { return FParser; }
    void SetParser(TVdSelectParser* parser);
    bool UsesAggregates() const { return FUsesAggregates; }

    // Resets the view.
    void Activate();
    // Empties the view (the model is cleared by its owner).
    void Clear();
    // Fills the view from the model.
    virtual void RefreshRows() = 0;
    // The builder is about to replace its operators, and has replaced them.
    void PrepareToReloadOperators();
    void ReloadOperators();
    // A table's alias changed: every field of the criteria qualified by the old alias is
    // qualified by the new one.
    void ChangeAlias(const QString& newAlias, const QString& oldAlias);
    // Gives the panel's open field list a say over leaving the page.
    void HideFieldList(QObject* sender, bool& allow);

    // The text the view shows.
    QString Text() const;

protected:
    void SetUsesAggregates(bool value) { FUsesAggregates = value; }
    // Shows the clause printed from the list (empty when the list is empty).
    void ShowCriterions(const TVdCriterions* list);

private:
    QPlainTextEdit* FText;
    TVdSelectParser* FParser = nullptr;
    bool FUsesAggregates = false;
    bool FReloading = false;
};

} // namespace vd
