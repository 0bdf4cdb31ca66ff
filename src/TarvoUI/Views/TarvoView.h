#pragma once

#include "DocumentController.h"

#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPrinter>
#include <QString>
#include <QTableWidget>
#include <QTextDocument>
#include <QWidget>
#include <memory>

/// The base of all tabs of a sounding window: what each may be asked to do, and the services that they share. A tab
/// borrows its document and the printer, which outlive it.
class TarvoView : public QWidget {
    Q_OBJECT

public:
    TarvoView(DocumentController* doc, QPrinter* printer, QWidget* parent);

    /// Whether saving, printing and recomputing make sense on this tab.
    bool canSave() const { return _canSave; }
    bool canPrint() const { return _canPrint; }
    bool canRecompute() const { return _canRecompute; }

    /// Shows the state of the analysis. It is called after every run: a tab that shows much looks whether its data
    /// have changed.
    virtual void update() {}
    virtual int printPreview() { return 0; }
    virtual int print() { return 0; }
    virtual int save() { return 0; }
    virtual int autoSave() { return 0; }
    /// The user goes to another tab.
    virtual void leavingView() {}

signals:
    /// Data or parameters have changed: recompute at once, or only show that it is needed.
    void processRequest(bool onlySignal);

protected:
    void saveConfig();
    bool isOn(const char* key) const;
    QString configText(const char* key) const;

    /// The place of the description, in as many lines as it needs.
    QLabel* makeTopLabel(const char* name);
    static void setCellValue(QTableWidget* table, int row, int column, double value, int precision);
    static void setCellValue(QTableWidget* table, int row, int column, const QString& text);
    static void setCellBackground(QTableWidget* table, int row, int column, const QColor& color);
    static void setEditValue(QLineEdit* edit, double value, int precision, bool missing);
    static QTableWidgetItem* createCell(QTableWidget* table, int row, int column, bool editable);
    static void resetGrid(QTableWidget* table);
    static QString straightLine(int n);

    /// The name of the sounding file, cut at its last ".": what the names of products begin with.
    QString getRootFilename() const;
    /// Asks for the name of a product: directory, root and suffix are proposed, and the extension of the chosen filter
    /// is added to a name without it. Empty when the user gives it up.
    QString getSaveFilename(const QString& title, const QString& filter, const QString& directory,
                            const QString& suffix, QString* selectedFilter);

    // Printing of texts, page by page with head and foot.
    QRectF textRect() const;
    /// False when the printer can't be written to.
    bool printPages(QTextDocument* doc, const QString& title, const QString& subTitle);
    int printDoc(QTextDocument* doc, const QString& title, const QString& subTitle);
    void previewDoc(QTextDocument* doc, const QString& title, const QString& subTitle);
    /// Before a print: a PDF file that was saved before isn't written once more.
    void printNatively();
    int previewText(QTextDocument* doc, const QString& title, const QString& subTitle, const QString& dialogTitle);
    int saveDoc(QTextDocument* doc, const QString& title, const QString& subTitle);

    static constexpr int kPreviewWidth = 750; ///< the least, pixels
    static constexpr int kPreviewHeight = 600;

    // Printing of the tab as it looks.
    int printGrab(const QString& dialogTitle);
    int previewGrab(const QString& dialogTitle);
    void paintGrab(QPrinter* printer);
    /// What is printed of it.
    virtual QPixmap picture() { return grab(); }

    TarvoConfigSet* _configSet;
    DocumentController* _doc;
    EditorControl* _editor;
    QString _description;
    bool _canSave = true;
    bool _canPrint = true;
    bool _canRecompute = true;
    QPrinter* _printer;

private:
    /// What stands on every page.
    struct PageTexts {
        QString title;
        QString subTitle;
        double subTitlePoints; ///< size of the type
    };

    void setUpText();
    void paintPage(QPainter& painter, QTextDocument* doc, const PageTexts& texts, int page);
};
