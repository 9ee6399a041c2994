#pragma once

// The base of the panels that edit the InterBase and Firebird clause options of a parser. The
// builder does not create them: the host places one and hands it the parser.

#include <QWidget>

class QLineEdit;

namespace vd {

class TVdIBSelectParser;

class TVdOptionsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit TVdOptionsPanel(QWidget* parent = nullptr);

    // The parser whose options the panel edits (not owned; it must outlive the panel or be
    // replaced first). Without one, edits are ignored.
    TVdIBSelectParser* Parser() const { return FParser; }
    // Takes the parser and shows its current option values.
    void SetParser(TVdIBSelectParser* parser);

    // Shows the parser's values in the controls without writing anything back; 0 shows as an
    // empty edit. Call it after the parser read a new statement.
    void RefreshFromParser();

signals:
    // An edit stored a value into the parser's options.
    void optionsChanged();

protected:
    // The edit's text as a number; 0 for text that is no number.
    static int EditValue(const QLineEdit* edit);
    static void ShowValue(QLineEdit* edit, int value);
    // Writes nothing: called with the controls' signals blocked.
    virtual void ShowOptions(const TVdIBSelectParser& parser) = 0;
    // Every option control of the panel, so that showing values can silence them.
    virtual QList<QWidget*> OptionControls() const = 0;

private:
    TVdIBSelectParser* FParser = nullptr;
};

} // namespace vd
