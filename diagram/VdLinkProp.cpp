#include "diagram/VdLinkProp.h"

#include "builder/VdCustomVandor.h"
#include "builder/VdDialogService.h"
#include "builder/VdQtText.h"
#include "core/VdError.h"
#include "core/VdSelectParser.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"
#include "resources/VdResource.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>

#include <algorithm>

namespace vd {

namespace {

// The form's texts are 11 units high and the labels 13: labels keep that ratio to the
// system font the form uses.
QFont LabelFont(const QFont& base, bool bold)
{
    QFont font = base;
    if (base.pointSizeF() > 0)
        font.setPointSizeF(base.pointSizeF() * 13.0 / 11.0);
    else
        font.setPixelSize(base.pixelSize() * 13 / 11);
    font.setBold(bold);
    return font;
}

int TextWidth(const QWidget* widget, const QString& text)
{
    return QFontMetrics(widget->font()).horizontalAdvance(text);
}

} // namespace

TfmLinkProp::TfmLinkProp(QWidget* parent)
    : QDialog(parent, Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
{
    setWindowTitle(VdResource::LinkPropertiesCaption());
    setBackgroundRole(QPalette::Button);
    setSizeGripEnabled(false);
    FCaption = new QLabel(this);
    FCaption->setAlignment(Qt::AlignCenter);
    FCaption->setFont(LabelFont(font(), true));
    FLeftField = new QLabel(this);
    FLeftField->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    FLeftField->setFont(LabelFont(font(), false));
    FRightField = new QLabel(this);
    FRightField->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    FRightField->setFont(LabelFont(font(), false));
    FOK = new QPushButton(VdResource::OkButton(), this);
    FOK->setDefault(true);
    FCancel = new QPushButton(VdResource::CancelButton(), this);
    FConditions = new QComboBox(this);
    for (int i = 0; i < 6; ++i)
        FConditions->addItem(TVdLink::ConditionText(i));
    FLeftOuter = new QCheckBox(this);
    FRightOuter = new QCheckBox(this);
    FCaption->setGeometry(0, 0, DesignWidth, 25);
    FLeftField->setGeometry(75, 32, 62, 16);
    FRightField->setGeometry(200, 32, 72, 16);
    FOK->setGeometry(80, 96, 75, 25);
    FCancel->setGeometry(195, 96, 75, 25);
    FConditions->setGeometry(144, 28, 49, FConditions->sizeHint().height());
    FLeftOuter->setGeometry(0, 64, 169, FLeftOuter->sizeHint().height());
    FRightOuter->setGeometry(182, 64, 147, FRightOuter->sizeHint().height());
    setTabOrder(FOK, FCancel);
    setTabOrder(FCancel, FConditions);
    setTabOrder(FConditions, FLeftOuter);
    setTabOrder(FLeftOuter, FRightOuter);
    connect(FOK, &QPushButton::clicked, this,
            [this] { VdRunGuarded(this, [this] { buOKClick(); }); });
    connect(FCancel, &QPushButton::clicked, this, &QDialog::reject);
    resize(DesignWidth, DesignHeight);
    setFixedHeight(DesignHeight);
}

TfmLinkProp::~TfmLinkProp() = default;

TVdLink* TfmLinkProp::Link() const { return dynamic_cast<TVdLink*>(FCurrentLnk); }

void TfmLinkProp::FormShow()
{
    TVdLink* link = Link();
    if (!link)
        throw EVdError(ToStdString(VdResource::InvalidLink()));
    const TVdJoin* join = link->Join();
    const QString first = join->GetTableName(0);
    const QString second = join->GetTableName(1);
    const QString both = QLatin1Char(' ') + VdResource::And() + QLatin1Char(' ');
    FCaption->setText(VdResource::JoinTables() + first + both + second);
    FLeftField->setText(link->Row1()->Name());
    FRightField->setText(link->Row2()->Name());
    FLeftField->resize(TextWidth(FLeftField, FLeftField->text()), FLeftField->height());
    FRightField->resize(TextWidth(FRightField, FRightField->text()), FRightField->height());
    FLeftOuter->setText(VdResource::IncludeAllFrom() + QLatin1Char(' ') + first);
    FRightOuter->setText(VdResource::IncludeAllFrom() + QLatin1Char(' ') + second);
    const TVdJoinKind kind = join->JoinKind;
    FLeftOuter->setChecked(kind == vdjLOuterJoin || kind == vdjFOuterJoin);
    FRightOuter->setChecked(kind == vdjROuterJoin || kind == vdjFOuterJoin);
    FConditions->setCurrentIndex(link->Condition);
    CalcMinWidth();
    setMinimumWidth(FMinWidth);
    if (FMinWidth > width())
        resize(FMinWidth, height());
    FormResize();
}

void TfmLinkProp::buOKClick()
{
    TVdLink* link = Link();
    if (!link)
        throw EVdError(ToStdString(VdResource::InvalidLink()));
    TVdJoin* join = link->Join();
    TVdTableDef* tableDef = nullptr;
    TVdJoinDef* joinDef = nullptr;
    TCustomVandor* vandor = join->WorkArea() ? join->WorkArea()->Vandor() : nullptr;
    if (vandor)
        tableDef = vandor->Parser()->TableDefs().FindByAlias(ToStdString(join->GetTableName(0)));
    if (tableDef)
        joinDef = tableDef->JoinDefs().Find(ToStdString(link->Row1()->Name()),
                                            ToStdString(join->GetTableName(1)),
                                            ToStdString(link->Row2()->Name()));
    const bool left = FLeftOuter->isChecked();
    const bool right = FRightOuter->isChecked();
    const TVdJoinKind kind = left && right ? vdjFOuterJoin
                             : left        ? vdjLOuterJoin
                             : right       ? vdjROuterJoin
                                           : vdjInnerJoin;
    join->JoinKind = kind;
    link->Condition = FConditions->currentIndex();
    if (joinDef) {
        // The kind belongs to the pair of tables, as in the diagram: every definition that
        // joins the same two tables takes it, or the statement would join the table twice.
        TVdJoinDefs& pairDefs = tableDef->JoinDefs();
        for (int i = 0; i < pairDefs.Count(); ++i)
            if (pairDefs.Items(i)->JoinTable == joinDef->JoinTable)
                pairDefs.Items(i)->JoinKind = kind;
        joinDef->Operation = ToStdString(FConditions->currentText());
    }
    if (vandor)
        emit vandor->sqlChanged();
    accept();
}

bool TfmLinkProp::FormCanResize(int newWidth, int newHeight) const
{
    return newHeight == height() && newWidth >= FMinWidth;
}

void TfmLinkProp::CalcMinWidth()
{
    // A check box needs its text plus room for the box; the style's own hint wins if larger.
    auto checkWidth = [](QCheckBox* box) {
        return std::max(TextWidth(box, box->text()) + 20, box->sizeHint().width());
    };
    const int left = checkWidth(FLeftOuter);
    const int right = checkWidth(FRightOuter);
    FLeftOuter->resize(left, FLeftOuter->height());
    FRightOuter->resize(right, FRightOuter->height());
    const int checks = 2 * std::max(left, right) + 28;
    const int fields =
        2 * std::max(FLeftField->width(), FRightField->width()) + FConditions->width() + 22;
    const int caption = TextWidth(FCaption, FCaption->text()) + 22;
    FMinWidth = std::max({caption, fields, checks, LeastWidth});
}

void TfmLinkProp::FormResize()
{
    const int w = width();
    const int combo = FConditions->width();
    FCaption->setGeometry(0, 0, w, 25);
    FConditions->move((w - combo) / 2, FConditions->y());
    FLeftField->move((w - combo) / 2 - 1 - FLeftField->width(), FLeftField->y());
    FRightField->move((combo + w) / 2 + 1, FRightField->y());
    FLeftOuter->move(w / 2 - 4 - FLeftOuter->width(), FLeftOuter->y());
    FRightOuter->move(w / 2 + 4, FRightOuter->y());
    FOK->move(w / 2 - 20 - FOK->width(), FOK->y());
    FCancel->move(w / 2 + 20, FCancel->y());
}

void TfmLinkProp::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    FormResize();
}

bool ShowLinkProperties(TVdLink* link)
{
    if (!link)
        throw EVdError(ToStdString(VdResource::InvalidLink()));
    TfmLinkProp* dialog = link->WorkArea()->LinkPropDialog();
    dialog->SetCurrentLnk(link);
    dialog->FormShow();
    const bool ok = dialog->exec() == QDialog::Accepted;
    dialog->SetCurrentLnk(nullptr);
    if (ok)
        link->WorkArea()->viewport()->update();
    return ok;
}

} // namespace vd
