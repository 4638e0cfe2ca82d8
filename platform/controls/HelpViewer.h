// The window that shows the help: one page of HTML with links, a way back and forward and a search.
// It reads the help file and nothing else, neither from this machine nor from the net; links that
// lead out of the page go to the desktop.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QTextBrowser;
class QToolButton;

class HelpViewer : public QWidget
{
    Q_OBJECT

public:
    /// A window of its own, above the parent's, which owns it.
    explicit HelpViewer(QWidget *parent);

    /// Reads the file and shows its top. It holds XHTML in UTF-8, of the elements that the
    /// toolkit's text documents know; a picture's source is "icon:" and an image key. A file that
    /// is not there, empty, larger than 64 KiB, nested more than 16 deep or no such text gives a
    /// page that says so.
    void ShowContents(const QString &HelpFile);
    /// The same, and scrolls to the topic of a context id; one that is not known shows the top.
    void ShowContext(const QString &HelpFile, int Context);
    /// Name of the anchor in the help text where the topic of a context id begins; empty for an id
    /// that has none.
    static QString AnchorOf(int Context);

    QTextBrowser *Page = nullptr;
    QLineEdit *FindText = nullptr;
    QToolButton *Back = nullptr;
    QToolButton *Forward = nullptr;
    QToolButton *Contents = nullptr;
    QToolButton *Previous = nullptr;
    QToolButton *Next = nullptr;
    QLabel *FindResult = nullptr; ///< empty after a plain hit

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void createControls();
    QToolButton *makeButton(const char *name, const QString &caption, const QString &imageKey);
    void find(bool backward);
    void follow(const QUrl &link);
};
