#include "dialects/VdOptionsPanel.h"

#include <QLineEdit>
#include <QSignalBlocker>

#include <vector>

namespace vd {

TVdOptionsPanel::TVdOptionsPanel(QWidget* parent) : QWidget(parent) {}

void TVdOptionsPanel::SetParser(TVdIBSelectParser* parser)
{
    FParser = parser;
    RefreshFromParser();
}

void TVdOptionsPanel::RefreshFromParser()
{
    if (!FParser)
        return;
    std::vector<QSignalBlocker> blockers;
    const QList<QWidget*> controls = OptionControls();
    blockers.reserve(std::size_t(controls.size()));
    for (QWidget* control : controls)
        blockers.emplace_back(control);
    ShowOptions(*FParser);
}

int TVdOptionsPanel::EditValue(const QLineEdit* edit)
{
    bool ok = false;
    const int value = edit->text().trimmed().toInt(&ok);
    return ok ? value : 0;
}

void TVdOptionsPanel::ShowValue(QLineEdit* edit, int value)
{
    edit->setText(value == 0 ? QString() : QString::number(value));
}

} // namespace vd
