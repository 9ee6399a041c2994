#pragma once

// The builder component: owns the parser (and through it the query model), the diagram, the
// four tab sheets with their views, the palette and the style. Every edit made in a view
// reaches the model through one of the Handle... operations below, which then refresh the
// view of the active sheet.
//
// Two-phase construction. A constructor cannot call the virtual CreateParser of a derived
// class, so TCustomVandor's constructor only sets the widget up; the parts (parser first, then
// palette, style, pages, views, work area) are made by the protected Construct(), which every
// concrete builder calls at the end of its own constructor:
//
//     TMyVandor::TMyVandor(QObject* owner, bool designMode) : TCustomVandor(owner, designMode)
//     {
//         Construct();
//     }
//
// Construct runs once; a second call does nothing. A concrete builder that is meant to be
// derived further also offers a constructor taking TVdDeferConstruct, which leaves the call
// to the class below it.

#include "builder/VdDataSet.h"
#include "builder/VdPalette.h"
#include "builder/VdStyle.h"
#include "builder/VdTypes.h"
#include "core/VdSelectParser.h"

#include <QIcon>
#include <QList>
#include <QMetaType>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

class QMimeData;
class QSplitter;

namespace vd {

class TVdFloatObject;
class TVdHavingPanel;
class TVdLink;
class TVdListItem;
class TVdOrderPanel;
class TVdPageControl;
class TVdSelectPanel;
class TVdTable;
class TVdTableList;
class TVdWherePanel;
class TVdWorkArea;

// The host answers with a data set (and, for a stored procedure, its parameters) that it
// keeps owning; leaving ADataSet null stops the loading of further tables.
using TGetTableFieldsEvent =
    std::function<void(const QString& NameOfTable, TDataSet*& ADataSet, TParams*& AParams)>;
using TAddRemoveTableEvent =
    std::function<void(QObject* Sender, TVdTable* Table, TVdAction Action, bool& Accept)>;
using TAddRemoveLinkEvent =
    std::function<void(QObject* Sender, TVdLink* Link, TVdAction Action, bool& Accept)>;
using TEnterProcParameter =
    std::function<void(QObject* Sender, TVdTable* SProcedure, TVdListItem* ListItem)>;

// Something other than a field of the diagram is dragged over the diagram (At in the builder's
// coordinates); Accept starts false. A drop of it follows as OnDragDrop.
using TVdDragOverEvent = std::function<void(QObject* Sender, QObject* Source, const QMimeData* Data,
                                            const QPoint& At, bool& Accept)>;
using TVdDragDropEvent =
    std::function<void(QObject* Sender, QObject* Source, const QMimeData* Data, const QPoint& At)>;

// The views a palette or style change repaints.
enum TVdRepaintTarget : unsigned { vdrWorkArea = 0x1, vdrCriteriaPanels = 0x2 };

// Repaints the targets' views when owner is a builder outside design mode; otherwise nothing.
void RepaintOwnerViews(QObject* owner, unsigned targets);

// Tag for the constructors of concrete builders that leave Construct to a derived class.
struct TVdDeferConstruct {
};

// A property stored only when it differs from its default has an invokable IsXxxStored()
// (builder/VdStored.h).
class TCustomVandor : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QStringList Aggregates READ GetAggregates WRITE SetAggregates RESET ResetAggregates)
    Q_PROPERTY(QStringList Functions READ GetFunctions WRITE SetFunctions RESET ResetFunctions)
    Q_PROPERTY(QStringList Keywords READ GetKeywords WRITE SetKeywords RESET ResetKeywords)
    Q_PROPERTY(vd::TVdOperators* Operators READ GetOperators WRITE SetOperators)
    Q_PROPERTY(vd::TVdOptions Options READ GetOptions WRITE SetOptions RESET ResetOptions)
    Q_PROPERTY(vd::TVdPalette* Palette READ GetPalette WRITE SetPalette)
    Q_PROPERTY(bool QuoteIdentifiers READ GetQuoteIdentifiers WRITE SetQuoteIdentifiers RESET
                   ResetQuoteIdentifiers)
    Q_PROPERTY(vd::TVdScriptFormat ScriptFormat READ GetScriptFormat WRITE SetScriptFormat)
    Q_PROPERTY(vd::TVdStyle* Style READ GetStyle WRITE SetStyle)
    Q_PROPERTY(int TabHeight READ GetTabHeight WRITE SetTabHeight RESET ResetTabHeight)
    Q_PROPERTY(vd::TVdVisibleTabs VisibleTabs READ GetVisibleTabs WRITE SetVisibleTabs RESET
                   ResetVisibleTabs)
    Q_PROPERTY(QString _Version READ GetVersion WRITE SetVersion STORED false)
    Q_PROPERTY(QString SQL READ GetSQL WRITE SetSQL NOTIFY sqlChanged STORED false DESIGNABLE false)

public:
    static constexpr int DefTabHeight = 170;
    static constexpr int DefSplitterHeight = 5;
    static constexpr TVdOptions DefOptions = TVdOptions(vdoRowSelect);

    ~TCustomVandor() override;

    // Dialects return their own parser class.
    virtual std::unique_ptr<TVdSelectParser> CreateParser();
    // The statement printed from the model.
    virtual QString GetSQL();
    // Replaces everything with the statement read from text; parse errors reach the host only
    // through OnParserError.
    virtual void SetSQL(const QString& text);
    virtual void BeginReload();
    virtual void EndReload();

    void Clear();
    // "alias.field" for every field of every table not being closed, in table and row order.
    void GetAvailableFields(QStringList* list);
    bool DoAddRemoveTable(TVdTable* table, TVdAction action);
    bool DoAddRemoveLink(TVdLink* link, TVdAction action);
    void RefreshActivePage();
    void RefreshSelectGridFields();

    // The views' events land here.
    void HandleHideFieldList(QObject* sender, bool& allow);
    void HandlePagesChange(QObject* sender);
    void HandleSelectField(const QString& fieldValue, const QString& aggregateValue,
                           const QString& aliasValue);
    void HandleUnselectField(const QString& fieldValue, const QString& aggregateValue,
                             const QString& aliasValue);
    void HandleDeleteField(const QString& fieldValue, const QString& aggregateValue,
                           const QString& aliasValue);
    void HandleChangeFieldAlias(const QString& fieldValue, const QString& aliasValue,
                                QString& newAlias);
    void HandleGetOrderFields(QObject* sender, QStringList& list);
    // A grid row moved: the output column moves with it.
    void HandleMoveField(int from, int to);
    void HandleCheckField(TVdTable* table, TVdListItem* item);
    void HandleAddTable(QObject* sender, TVdFloatObject* table);
    void HandleRemoveTable(QObject* sender, TVdFloatObject* table);
    void HandleChangeAlias(TVdTable* table, const QString& oldAlias);
    // Kept with the check event's signature although nothing wires it.
    void HandleAddRemoveField(TVdTable* table, TVdListItem* item);

    // Published properties.
    QStringList GetAggregates() const;
    void SetAggregates(const QStringList& value);
    void ResetAggregates();
    Q_INVOKABLE bool IsAggregatesStored() const;
    QStringList GetFunctions() const;
    void SetFunctions(const QStringList& value);
    void ResetFunctions();
    Q_INVOKABLE bool IsFunctionsStored() const;
    QStringList GetKeywords() const;
    void SetKeywords(const QStringList& value);
    void ResetKeywords();
    Q_INVOKABLE bool IsKeywordsStored() const;
    TVdOperators* GetOperators() const;
    // Copies into the parser's operators; the very same collection is ignored.
    void SetOperators(TVdOperators* value);
    TVdOptions GetOptions() const { return FOptions; }
    void SetOptions(TVdOptions value);
    void ResetOptions() { SetOptions(DefOptions); }
    Q_INVOKABLE bool IsOptionsStored() const { return FOptions != DefOptions; }
    TVdPalette* GetPalette() const { return FPalette.get(); }
    // Copies into the owned palette; the very same object is ignored.
    void SetPalette(TVdPalette* value);
    bool GetQuoteIdentifiers() const;
    void SetQuoteIdentifiers(bool value);
    void ResetQuoteIdentifiers() { SetQuoteIdentifiers(true); }
    Q_INVOKABLE bool IsQuoteIdentifiersStored() const { return !GetQuoteIdentifiers(); }
    TVdScriptFormat GetScriptFormat() const;
    void SetScriptFormat(const TVdScriptFormat& value);
    TVdStyle* GetStyle() const { return FStyle.get(); }
    void SetStyle(TVdStyle* value);
    int GetTabHeight() const { return FTabHeight; }
    // Applied only above 170: the pages never shrink below their first height.
    void SetTabHeight(int value);
    void ResetTabHeight();
    Q_INVOKABLE bool IsTabHeightStored() const { return FTabHeight != DefTabHeight; }
    TVdVisibleTabs GetVisibleTabs() const { return FVisibleTabs; }
    void SetVisibleTabs(TVdVisibleTabs value);
    void ResetVisibleTabs() { SetVisibleTabs(AllVisibleTabs); }
    Q_INVOKABLE bool IsVisibleTabsStored() const { return FVisibleTabs != AllVisibleTabs; }
    QString GetVersion() const { return QStringLiteral("2.02"); }
    void SetVersion(const QString&) {}

    TVdParserErrorEvent GetOnParserError() const;
    void SetOnParserError(TVdParserErrorEvent event);

    TGetTableFieldsEvent OnGetTableFields;
    TAddRemoveTableEvent OnAddRemoveTable;
    TAddRemoveLinkEvent OnAddRemoveLink;
    TEnterProcParameter OnEnterProcParameter;
    TVdDragOverEvent OnDragOver;
    TVdDragDropEvent OnDragDrop;

    bool DesignMode() const { return FDesignMode; }
    bool IsConstructed() const { return FConstructed; }
    TVdSelectParser* Parser() const { return FParser.get(); }
    // None of these exist in design mode but the page control and its sheets.
    TVdWorkArea* WorkArea() const { return FWorkArea; }
    TVdTableList* TableList() const { return FTableList.get(); }
    TVdPageControl* PageControl() const { return FPageControl; }
    QSplitter* Splitter() const { return FSplitter; }
    // The bar between diagram and pages; shown exactly when the page control is.
    QWidget* SplitterHandle() const;
    TVdWherePanel* WherePanel() const { return FWherePanel; }
    TVdSelectPanel* SelectPanel() const { return FSelectPanel; }
    TVdHavingPanel* HavingPanel() const { return FHavingPanel; }
    TVdOrderPanel* OrderPanel() const { return FOrderPanel; }
    // Table icon (0) and field icon (1).
    const QList<QIcon>& Images() const { return FImages; }

    // Repaints the views a palette or style change concerns (never in design mode: the
    // palette and style check that before calling).
    void RepaintViews(unsigned targets);

signals:
    // After every edit or load that can change the printed statement.
    void sqlChanged();
    // A palette or style change repainted these views (TVdRepaintTarget bits).
    void viewsRepainted(unsigned targets);

protected:
    // owner becomes the parent when it is a widget. In design mode (the component being
    // edited in a form designer) only the pages are made.
    explicit TCustomVandor(QObject* owner = nullptr, bool designMode = false);
    void Construct();
    void resizeEvent(QResizeEvent* event) override;

private:
    void RenameKeptQualifiers(const QString& newName, const QString& oldName,
                              const QString& newAlias, const QString& oldAlias);
    void CreateImages();
    void CreatePages();
    void CreateSheetViews();
    void CreateWorkArea();
    void WireWorkArea();
    void LoadTables();
    void LoadLinks();
    // The visible-tab position of a sheet, -1 when its tab is hidden.
    int VisibleTabIndex(int sheetIndex) const;
    void ApplyTabHeight();
    // The definition of a table object: by its alias among the aliases.
    TVdTableDef* FindDef(const QString& alias) const;
    // A grid row's field ("T.A") loses its tick in the diagram; its definition by the row's
    // alias, if any.
    TVdFieldDef* UntickGridField(const QString& fieldValue, const QString& aliasValue);
    // The field a grid row stopped selecting; the select event that follows may replace it.
    TVdFieldDef* TakeUnselectedField();
    void ChangeSQL();

    TVdWorkArea* FWorkArea = nullptr;
    std::unique_ptr<TVdTableList> FTableList;
    TVdPageControl* FPageControl = nullptr;
    QSplitter* FSplitter = nullptr;
    TVdWherePanel* FWherePanel = nullptr;
    TVdSelectPanel* FSelectPanel = nullptr;
    TVdHavingPanel* FHavingPanel = nullptr;
    TVdOrderPanel* FOrderPanel = nullptr;
    QList<QIcon> FImages;
    std::unique_ptr<TVdSelectParser> FParser;
    // Table alias and field alias of the last unselected grid row (kept as names: the model
    // may change between the two events).
    QString FUnselectedTable;
    QString FUnselectedAlias;
    std::unique_ptr<TVdPalette> FPalette;
    TVdOptions FOptions = DefOptions;
    std::unique_ptr<TVdStyle> FStyle;
    TVdVisibleTabs FVisibleTabs;
    int FTabHeight = DefTabHeight;
    // The sheet that was active when the last visible tab went.
    int FHiddenActiveSheet = -1;
    bool FDesignMode;
    bool FConstructed = false;
};

} // namespace vd

Q_DECLARE_METATYPE(vd::TVdScriptFormat)
Q_DECLARE_METATYPE(vd::TVdOperators*)
