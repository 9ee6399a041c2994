#include "builder/VdCustomVandor.h"

#include "builder/VdPageControl.h"
#include "builder/VdProc.h"
#include "builder/VdQtText.h"
#include "builder/VdTableList.h"
#include "diagram/VdFloatPanel.h"
#include "diagram/VdFloatTable.h"
#include "diagram/VdLinks.h"
#include "panels/VdHavingPanel.h"
#include "panels/VdOrderPanel.h"
#include "panels/VdSelectGrid.h"
#include "panels/VdSelectPanel.h"
#include "panels/VdWherePanel.h"
#include "resources/VdImages.h"
#include "resources/VdResource.h"

#include <QResizeEvent>
#include <QSplitter>
#include <QVBoxLayout>

namespace vd {

TCustomVandor::TCustomVandor(QObject* owner, bool designMode)
    : QWidget(qobject_cast<QWidget*>(owner)), FDesignMode(designMode)
{
    resize(300, 340);
}

TCustomVandor::~TCustomVandor()
{
    // The views outlive this body (Qt frees children afterwards): cut their way back in.
    if (FWorkArea) {
        FWorkArea->OnCheckItem = nullptr;
        FWorkArea->OnAddTable = nullptr;
        FWorkArea->OnRemoveTable = nullptr;
        FWorkArea->OnChangeAlias = nullptr;
        FWorkArea->OnAddLink = nullptr;
        FWorkArea->OnRemoveLink = nullptr;
    }
    if (FPageControl) {
        FPageControl->OnChanging = nullptr;
        FPageControl->OnChange = nullptr;
    }
    FStyle.reset();
    FPalette.reset();
    FParser.reset();
    FTableList.reset();
}

void TCustomVandor::Construct()
{
    if (FConstructed)
        return;
    FConstructed = true;
    FParser = CreateParser();
    FPalette = std::make_unique<TVdPalette>(this);
    FStyle = std::make_unique<TVdStyle>(this);
    FOptions = DefOptions;
    CreateImages();
    CreatePages();
    if (!FDesignMode) {
        CreateWorkArea();
        FTableList = std::make_unique<TVdTableList>(FWorkArea);
    }
    ApplyTabHeight();
}

std::unique_ptr<TVdSelectParser> TCustomVandor::CreateParser()
{
    return std::make_unique<TVdSelectParser>();
}

void TCustomVandor::CreateImages()
{
    // Drawn with a transparent background, so no mask colour is needed.
    FImages = {VdIcon("TABLEBMP"), VdIcon("FIELDBMP")};
}

void TCustomVandor::CreatePages()
{
    FSplitter = new QSplitter(Qt::Vertical, this);
    FSplitter->setHandleWidth(DefSplitterHeight);
    FSplitter->setChildrenCollapsible(false);
    FPageControl = new TVdPageControl(FSplitter);
    FPageControl->setObjectName(QStringLiteral("PageCtrl"));
    FSplitter->addWidget(FPageControl);
    FSplitter->setStretchFactor(0, 0);
    if (!FDesignMode) {
        FPageControl->OnChanging = [this](QObject* sender, bool& allow) {
            HandleHideFieldList(sender, allow);
        };
        FPageControl->OnChange = [this](QObject* sender) { HandlePagesChange(sender); };
    }
    connect(FSplitter, &QSplitter::splitterMoved, this, [this] {
        if (FPageControl->isVisible())
            FTabHeight = FPageControl->height();
    });
    const QString captions[] = {VdResource::CriteriaSheet(), VdResource::SelectionSheet(),
                                VdResource::GroupingCriteriaSheet(), VdResource::SortingSheet()};
    const TVdVisibleTab tabs[] = {vdtCriterions, vdtSelection, vdtGroupCriterions, vdtSorting};
    for (int i = 0; i < 4; ++i) {
        auto* sheet = new QWidget;
        auto* layout = new QVBoxLayout(sheet);
        layout->setContentsMargins(0, 0, 0, 0);
        FPageControl->Quietly([&] { FPageControl->addTab(sheet, captions[i]); });
        SetVisibleTabs(FVisibleTabs | tabs[i]);
    }
    if (!FDesignMode)
        CreateSheetViews();
}

void TCustomVandor::CreateSheetViews()
{
    const auto place = [this](int index, QWidget* view) {
        FPageControl->widget(index)->layout()->addWidget(view);
    };
    FWherePanel = new TVdWherePanel(FPageControl->widget(0));
    place(0, FWherePanel);
    FWherePanel->SetParser(FParser.get());
    FWherePanel->Activate();
    connect(FWherePanel, &TVdCriterionPanel::criteriaChanged, this, &TCustomVandor::ChangeSQL);

    FSelectPanel = new TVdSelectPanel(FPageControl->widget(1));
    place(1, FSelectPanel);
    FSelectPanel->SetParser(FParser.get());
    TVdSelectGrid* grid = FSelectPanel->Grid();
    grid->OnSelectField = [this](const QString& f, const QString& a, const QString& n) {
        HandleSelectField(f, a, n);
    };
    grid->OnUnselectField = [this](const QString& f, const QString& a, const QString& n) {
        HandleUnselectField(f, a, n);
    };
    grid->OnDeleteField = [this](const QString& f, const QString& a, const QString& n) {
        HandleDeleteField(f, a, n);
    };
    grid->OnChangeAlias = [this](const QString& f, const QString& a, QString& n) {
        HandleChangeFieldAlias(f, a, n);
    };
    grid->OnMoveField = [this](int from, int to) { HandleMoveField(from, to); };
    connect(FSelectPanel, &TVdSelectPanel::distinctChanged, this, &TCustomVandor::ChangeSQL);
    connect(FSelectPanel, &TVdSelectPanel::groupingChanged, this, &TCustomVandor::ChangeSQL);
    // What is grouped by beyond the output fields follows every edit of them.
    connect(this, &TCustomVandor::sqlChanged, FSelectPanel, &TVdSelectPanel::RefreshKeptGrouping);

    FHavingPanel = new TVdHavingPanel(FPageControl->widget(2));
    place(2, FHavingPanel);
    FHavingPanel->SetParser(FParser.get());
    FHavingPanel->Activate();
    connect(FHavingPanel, &TVdCriterionPanel::criteriaChanged, this, &TCustomVandor::ChangeSQL);

    FOrderPanel = new TVdOrderPanel(FPageControl->widget(3));
    place(3, FOrderPanel);
    FOrderPanel->SetParser(FParser.get());
    FOrderPanel->OnGetFields = [this](QObject* sender, QStringList& list) {
        HandleGetOrderFields(sender, list);
    };
    connect(FOrderPanel, &TVdOrderPanel::orderChanged, this, &TCustomVandor::ChangeSQL);
}

void TCustomVandor::CreateWorkArea()
{
    FWorkArea = new TVdWorkArea(this);
    FSplitter->insertWidget(0, FWorkArea);
    FSplitter->setStretchFactor(0, 1);
    FSplitter->setStretchFactor(1, 0);
    WireWorkArea();
}

void TCustomVandor::WireWorkArea()
{
    // The check event is first given HandleAddRemoveField and then HandleCheckField, which
    // is the one that stays.
    FWorkArea->OnCheckItem = [this](TVdTable* t, TVdListItem* i) { HandleAddRemoveField(t, i); };
    FWorkArea->OnCheckItem = [this](TVdTable* t, TVdListItem* i) { HandleCheckField(t, i); };
    FWorkArea->OnAddTable = [this](QObject* s, TVdFloatObject* t) { HandleAddTable(s, t); };
    FWorkArea->OnRemoveTable = [this](QObject* s, TVdFloatObject* t) { HandleRemoveTable(s, t); };
    FWorkArea->OnChangeAlias = [this](TVdTable* t, const QString& old) {
        HandleChangeAlias(t, old);
    };
    // Links write their joins into the model themselves; the statement changed.
    FWorkArea->OnAddLink = [this](QObject*, TVdFloatObject*) { ChangeSQL(); };
    FWorkArea->OnRemoveLink = [this](QObject*, TVdFloatObject*) { ChangeSQL(); };
}

void TCustomVandor::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (FSplitter)
        FSplitter->setGeometry(rect());
    ApplyTabHeight();
}

void TCustomVandor::ApplyTabHeight()
{
    if (!FSplitter)
        return;
    FSplitter->setGeometry(rect());
    if (!FWorkArea) {
        FSplitter->setSizes({height()});
        return;
    }
    const int rest = std::max(0, height() - FTabHeight - FSplitter->handleWidth());
    FSplitter->setSizes({rest, FTabHeight});
}

QWidget* TCustomVandor::SplitterHandle() const
{
    if (!FSplitter || !FPageControl)
        return nullptr;
    return FSplitter->handle(FSplitter->indexOf(FPageControl));
}

void TCustomVandor::ChangeSQL() { emit sqlChanged(); }

void RepaintOwnerViews(QObject* owner, unsigned targets)
{
    auto* vandor = qobject_cast<TCustomVandor*>(owner);
    if (vandor && !vandor->DesignMode())
        vandor->RepaintViews(targets);
}

void TCustomVandor::RepaintViews(unsigned targets)
{
    if ((targets & vdrWorkArea) && FWorkArea)
        FWorkArea->viewport()->update();
    if (targets & vdrCriteriaPanels) {
        if (FWherePanel)
            FWherePanel->update();
        if (FHavingPanel)
            FHavingPanel->update();
    }
    emit viewsRepainted(targets);
}

// ---- SQL text ----

QString TCustomVandor::GetSQL() { return ToQString(FParser->GetExpression()); }

void TCustomVandor::SetSQL(const QString& text)
{
    // Whatever happens below (the parser may raise when no error event is assigned), the
    // statement has been replaced.
    struct TChanged {
        TCustomVandor* Self;
        ~TChanged() { emit Self->sqlChanged(); }
    } changed{this};
    Clear();
    FParser->SetExpression(ToStdString(text));
    if (!FTableList)
        return;
    LoadTables();
    LoadLinks();
    FSelectPanel->RefreshFields();
    FOrderPanel->RefreshFields();
    FWherePanel->RefreshRows();
    FHavingPanel->RefreshRows();
}

void TCustomVandor::LoadTables()
{
    TParams inputs;
    TVdTableDefs& defs = FParser->TableDefs();
    for (int i = 0; i < defs.Count(); ++i) {
        TVdTableDef* def = defs.Items(i);
        TDataSet* dataSet = nullptr;
        TParams* params = nullptr;
        inputs.Clear();
        if (OnGetTableFields)
            OnGetTableFields(ToQString(def->Name()), dataSet, params);
        if (!dataSet)
            break; // deliberately silent: the remaining tables get no object
        if (params)
            for (int p = 0; p < params->Count(); ++p)
                if (params->Items(p).IsInput())
                    inputs.Add(params->Items(p));
        const QString name = ToQString(def->Name());
        TVdTable* table = def->TableType() != qttStoredProc
                              ? FTableList->AddTable(name, dataSet)
                              : FTableList->AddProc(name, dataSet, &inputs);
        if (!table)
            continue; // the host refused it
        const QString alias = ToQString(def->Alias());
        if (table->TableName() != alias && !alias.isEmpty())
            table->SetAlias(alias);
        TVdFieldDefs& fields = def->FieldDefs();
        for (int f = 0; f < fields.Count();) {
            TVdFieldDef* field = fields.Items(f);
            // A procedure's arguments are the call's, not columns of its result.
            if (field->IsInputParam()) {
                ++f;
                continue;
            }
            TVdListItem* item = table->FindItem(ToQString(field->Name()));
            if (field->Kind() == fkIdentifier && !item) {
                fields.Delete(f);
                continue;
            }
            if (item && item->ParamType() == ptOutput)
                item->SetCheck(true);
            ++f;
        }
        defs.UpdateFieldAliases();
    }
}

void TCustomVandor::LoadLinks()
{
    TVdTableDefs& defs = FParser->TableDefs();
    for (int i = 0; i < defs.Count(); ++i) {
        TVdTableDef* def = defs.Items(i);
        const std::string key = def->Alias().empty() ? def->Name() : def->Alias();
        TVdTable* first = FTableList->FindByAlias(ToQString(key));
        const TVdJoinDefs& joins = def->JoinDefs();
        for (int j = 0; j < joins.Count(); ++j) {
            const TVdJoinDef* join = joins.Items(j);
            TVdTable* second = FTableList->FindByAlias(ToQString(join->JoinTable));
            if (!first || !second || join->FieldName.empty())
                continue;
            TVdListItem* row1 = first->FindItem(ToQString(join->FieldName));
            TVdListItem* row2 = second->FindItem(ToQString(join->JoinField));
            const TVdJoinKind kind = join->JoinKind;
            TVdLink* link = FWorkArea->AddLink(first, second, row1, row2);
            if (link)
                link->Join()->JoinKind = kind;
        }
    }
}

void TCustomVandor::BeginReload()
{
    if (FWherePanel)
        FWherePanel->PrepareToReloadOperators();
    if (FHavingPanel)
        FHavingPanel->PrepareToReloadOperators();
}

void TCustomVandor::EndReload()
{
    if (FWherePanel)
        FWherePanel->ReloadOperators();
    if (FHavingPanel)
        FHavingPanel->ReloadOperators();
}

void TCustomVandor::Clear()
{
    FParser->Clear();
    if (FWorkArea)
        FWorkArea->ClearContents();
    if (FWherePanel)
        FWherePanel->Clear();
    if (FHavingPanel)
        FHavingPanel->Clear();
    if (FSelectPanel)
        FSelectPanel->Clear();
    if (FOrderPanel)
        FOrderPanel->Clear();
    RefreshActivePage();
    if (FWorkArea)
        FWorkArea->viewport()->update();
    emit sqlChanged();
}

// ---- Lists and questions ----

void TCustomVandor::GetAvailableFields(QStringList* list)
{
    if (!list)
        return;
    list->clear();
    if (!FTableList)
        return;
    for (int i = 0; i < FTableList->GetTablesCount(); ++i) {
        TVdTable* table = FTableList->GetTable(i);
        if (!table || table->Closing())
            continue;
        for (int j = 0; j < table->Count(); ++j)
            list->append(table->GetAlias() + QLatin1Char('.') + table->Items(j)->Name());
    }
}

bool TCustomVandor::DoAddRemoveTable(TVdTable* table, TVdAction action)
{
    bool accept = true;
    if (OnAddRemoveTable)
        OnAddRemoveTable(this, table, action, accept);
    return accept;
}

bool TCustomVandor::DoAddRemoveLink(TVdLink* link, TVdAction action)
{
    bool accept = true;
    if (OnAddRemoveLink)
        OnAddRemoveLink(this, link, action, accept);
    return accept;
}

int TCustomVandor::VisibleTabIndex(int sheetIndex) const
{
    return FPageControl ? FPageControl->VisibleTabIndex(sheetIndex) : -1;
}

void TCustomVandor::RefreshActivePage()
{
    if (!FPageControl || !FWherePanel)
        return;
    const int active = FPageControl->currentIndex();
    if (active < 0)
        return;
    // The position among the visible tabs, so hiding an earlier tab shifts the refresh.
    switch (VisibleTabIndex(active)) {
    case 0:
        FWherePanel->RefreshRows();
        break;
    case 1:
        RefreshSelectGridFields();
        FSelectPanel->RefreshFields();
        break;
    case 2:
        FHavingPanel->RefreshRows();
        break;
    case 3:
        FOrderPanel->RefreshFields();
        break;
    default:
        break;
    }
}

void TCustomVandor::RefreshSelectGridFields()
{
    if (!FSelectPanel || !FTableList)
        return;
    QStringList& fields = FSelectPanel->Grid()->Fields();
    fields.clear();
    for (int i = 0; i < FTableList->GetTablesCount(); ++i) {
        TVdTable* table = FTableList->GetTable(i);
        if (!table)
            continue;
        for (int j = 0; j < table->Count(); ++j)
            fields.append(table->GetAlias() + QLatin1Char('.') + table->Items(j)->Name());
    }
}

} // namespace vd
