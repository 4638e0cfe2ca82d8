// The edit control of the board: plain text in one font, one colour and one alignment, in the
// characters of the code page and never longer than its limit. It knows no window; what a name of a
// font stands for is asked from the function that its owner hands in.
#pragma once

#include "platform/controls/WheelSteps.h"
#include "textboard/BoardFont.h"

#include <QPlainTextEdit>

/// The rule by which boards find their fonts: the families of the font catalog.
BoardFont CatalogBoardFont(const QString &name);

/// Positions and lengths are characters of the text, counted from 0. A line end is CR LF, two
/// characters, in everything that is given out; CR LF, a lone CR and a lone LF are all taken in as
/// one line end. A position between CR and LF means the one before the line end, one outside the
/// text the nearer end of the text.
///
/// What comes in, typed, composed, dropped, pasted or set by code, is brought into the code page,
/// and what goes beyond `MaxLength` is left out without a word, never half a line end. A key whose
/// character doesn't fit changes nothing. Every code from 0 to 255 except CR and LF survives from
/// setting to getting.
class TextBoard : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// The factory is called once for each change of the font's name.
    explicit TextBoard(QWidget *parent = nullptr, BoardFontFactory factory = {});

    /// The most characters that the text can have.
    static constexpr int MaxLength() { return 61440; }

    /// The number of characters, without walking over the text.
    int TextLength() const;

    /// The text as the board takes it in: in characters of the code page, with line ends CR LF. Of
    /// a text many times the limit only a beginning is taken, which is beyond the limit too.
    static QString Fitting(QStringView text);

    QString Text() const;
    /// Replaces the whole text; the caret goes to its start and undo begins anew. `Change` comes
    /// also if the text is the same as before.
    void setText(const QString &text);

    QString SelText() const;
    /// Replaces the selection, or inserts at the caret, with as many characters as fit, can be
    /// undone, and leaves the caret behind them and in view. The selection stays if not even one
    /// character of a text that isn't empty fits.
    void setSelText(const QString &text);

    /// The start of the selection, or the caret if there is none.
    int SelStart() const;
    /// Puts the caret there, drops the selection and scrolls the caret into view.
    void setSelStart(int start);
    int SelLength() const;
    /// Selects this many characters from `SelStart` on, as far as there are any; the caret is at
    /// their end.
    void setSelLength(int length);

    /// While one lives, name, size and styles of the font are kept but not laid out: the text is
    /// laid out once, at its end.
    class FontChange
    {
    public:
        explicit FontChange(TextBoard &board);
        ~FontChange();
        Q_DISABLE_COPY_MOVE(FontChange)

    private:
        TextBoard &Board;
    };

    QString FontName() const { return FaceName; }
    void setFontName(const QString &name);
    /// Points; a size that isn't above 0 is left out.
    double FontSize() const { return Points; }
    void setFontSize(double points);
    /// On if it was set, and also if the font has no other form.
    bool FontBold() const { return Bold || Face.builtInBold; }
    void setFontBold(bool on);
    bool FontItalic() const { return Italic || Face.builtInItalic; }
    void setFontItalic(bool on);
    bool FontUnderline() const { return Underline; }
    void setFontUnderline(bool on);
    bool FontStrikethru() const { return Strikethru; }
    void setFontStrikethru(bool on);
    QColor ForeColor() const;
    void setForeColor(const QColor &color);
    /// 0 left, 1 right, 2 centre; other numbers change nothing.
    int Alignment() const { return TextAlignment; }
    void setAlignment(int alignment);

signals:
    /// The text was changed, by the user or by code; comes before the change returns, and not for
    /// fonts, colours, the selection or a composition that is not committed yet.
    void Change();
    void KeyUp();
    void MouseUp();
    /// The wheel was turned so many steps with Ctrl held: up, above 0, is for a larger font.
    void SizeTurned(int steps);

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    // These go round the limit, the code page or the line ends.
    using QPlainTextEdit::appendHtml;
    using QPlainTextEdit::appendPlainText;
    using QPlainTextEdit::insertPlainText;
    using QPlainTextEdit::setPlainText;
    using QPlainTextEdit::toPlainText;

    int toDocument(int position) const;
    int toText(int documentPosition) const;
    int room() const;
    bool insertWhatFits(const QString &text);
    void applyFont();
    void keepSelectionVisible();

    BoardFontFactory Factory;
    BoardFont Face;
    QString FaceName;
    double Points;
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Strikethru = false;
    int TextAlignment = 0;
    int OpenFontChanges = 0;
    bool Silent = false;  ///< what the document reports now is no change of the text
    bool Changed = false; ///< the document reported a change that `Change` has yet to tell
    bool DropWasCut = false;
    WheelSteps Wheel;
};
