// The board's edit control: counting CR LF, the limit at every way in, one font for all. The
// document holds one character for a line end, so positions are converted here and nowhere else.
#include "textboard/TextBoard.h"

#include "platform/CodePage.h"
#include "platform/FontCatalog.h"
#include "textboard/EditKeys.h"

#include <QFontInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QUrl>
#include <algorithm>
#include <array>
#include <memory>
#include <utility>

using EditKeys::belongsToWindow;
using EditKeys::isCommand;
using EditKeys::isRedo;

namespace {

// Left is left also where a line begins on the right, as in Hebrew and Arabic.
constexpr std::array<Qt::Alignment, 3> alignments = {
    Qt::AlignLeft | Qt::AlignAbsolute, Qt::AlignRight | Qt::AlignAbsolute, Qt::AlignHCenter};

/// Brings text into the code page, every kind of line end as one LF.
QString fitted(QStringView text)
{
    // Something dropped can be a thousand times the limit. Only accents that combine with the
    // letter before take no room of their own, so the rest can't matter.
    constexpr qsizetype EnoughForTheLimit = qsizetype(8) * TextBoard::MaxLength();
    text.truncate(std::min(text.size(), EnoughForTheLimit));
    QString lines;
    lines.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            continue;
        const bool lineEnd =
            c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
        lines += lineEnd ? QChar(u'\n') : c;
    }
    return CodePage::fit(lines);
}

/// Cuts fitted text to a number of characters, a line end counting two.
QString firstOf(const QString &text, int room)
{
    qsizetype end = 0;
    for (; end < text.size(); ++end) {
        room -= text[end] == u'\n' ? 2 : 1;
        if (room < 0)
            break;
    }
    return text.left(end);
}

QString withLineEnds(QString raw, QLatin1StringView lineEnd)
{
    return raw.replace(QChar(QChar::ParagraphSeparator), lineEnd);
}

QKeyEvent withText(const QKeyEvent &event, Qt::KeyboardModifiers modifiers, const QString &text)
{
    return QKeyEvent(event.type(), event.key(), modifiers, event.nativeScanCode(),
                     event.nativeVirtualKey(), event.nativeModifiers(), text, event.isAutoRepeat(),
                     static_cast<quint16>(event.count()), event.device());
}

} // namespace

BoardFont CatalogBoardFont(const QString &name)
{
    FontCatalog &catalog = FontCatalog::current();
    return {.font = catalog.font(name),
            .builtInBold = catalog.builtInBold(name),
            .builtInItalic = catalog.builtInItalic(name)};
}

TextBoard::TextBoard(QWidget *parent, BoardFontFactory factory)
    : QPlainTextEdit(parent)
    , Factory(std::move(factory))
    , Face{.font = font()}
    , FaceName(font().family())
    , Points(QFontInfo(font()).pointSizeF())
{
    if (!Factory)
        Factory = [](const QString &name) { return BoardFont{.font = QFont(name)}; };
    setAccessibleName(QStringLiteral("TextBoard"));
    // A sheet of paper on every desktop: the colours of the text are no desktop's, and the first of
    // them is black.
    QPalette paper = palette();
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    setPalette(paper);
    keepSelectionVisible();
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    applyFont();

    // The document also says that its contents changed at the end of an edit that did nothing; only
    // what told a place before is a change.
    connect(document(), &QTextDocument::contentsChange, this, [this] { Changed |= !Silent; });
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (std::exchange(Changed, false))
            emit Change();
    });
}

// Text and selection

int TextBoard::TextLength() const
{
    // The document counts each block's end as one character, that of the last block included.
    return document()->characterCount() - 1 + document()->blockCount() - 1;
}

QString TextBoard::Text() const
{
    // The raw text: the plain one has blanks in place of code 160.
    return withLineEnds(document()->toRawText(), QLatin1StringView("\r\n"));
}

void TextBoard::setText(const QString &text)
{
    {
        const QScopedValueRollback silent(Silent, true);
        setPlainText(firstOf(fitted(text), MaxLength()));
    }
    emit Change();
}

QString TextBoard::SelText() const
{
    return withLineEnds(textCursor().selectedText(), QLatin1StringView("\r\n"));
}

void TextBoard::setSelText(const QString &text)
{
    insertWhatFits(text);
}

int TextBoard::SelStart() const
{
    return toText(textCursor().selectionStart());
}

void TextBoard::setSelStart(int start)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(toDocument(start));
    setTextCursor(cursor);
    ensureCursorVisible();
}

int TextBoard::SelLength() const
{
    const QTextCursor cursor = textCursor();
    return toText(cursor.selectionEnd()) - toText(cursor.selectionStart());
}

void TextBoard::setSelLength(int length)
{
    const int start = SelStart();
    const int end = start + std::clamp(length, 0, TextLength() - start);
    QTextCursor cursor = textCursor();
    cursor.setPosition(cursor.selectionStart());
    cursor.setPosition(toDocument(end), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

int TextBoard::toText(int documentPosition) const
{
    return documentPosition + document()->findBlock(documentPosition).blockNumber();
}

int TextBoard::toDocument(int position) const
{
    int first = 0;
    int last = document()->blockCount() - 1;
    while (first < last) {
        const int middle = (first + last + 1) / 2;
        if (document()->findBlockByNumber(middle).position() + middle <= position)
            first = middle;
        else
            last = middle - 1;
    }
    const QTextBlock block = document()->findBlockByNumber(first);
    return block.position() +
           std::clamp(position - first - block.position(), 0, block.length() - 1);
}

QString TextBoard::Fitting(QStringView text)
{
    return fitted(text).replace(QChar(u'\n'), QLatin1StringView("\r\n"));
}

int TextBoard::room() const
{
    return MaxLength() - TextLength() + SelLength();
}

/// Says whether nothing had to be left out.
bool TextBoard::insertWhatFits(const QString &text)
{
    const QString whole = fitted(text);
    const QString part = firstOf(whole, room());
    if (!part.isEmpty() || whole.isEmpty()) {
        insertPlainText(part);
        ensureCursorVisible();
    }
    return part.size() == whole.size();
}

// Ways in from the user

bool TextBoard::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        const bool redo = isRedo(key);
        if (redo || belongsToWindow(key)) {
            event->setAccepted(redo);
            return redo;
        }
    }
    return QPlainTextEdit::event(event);
}

void TextBoard::keyPressEvent(QKeyEvent *event)
{
    if (belongsToWindow(*event)) {
        event->ignore();
        return;
    }
    if (isRedo(*event)) {
        redo();
        return;
    }
    if (event->matches(QKeySequence::InsertParagraphSeparator) ||
        event->matches(QKeySequence::InsertLineSeparator)) {
        // Without Shift, which would make a line end that is no character of the code page.
        QKeyEvent enter = withText(*event, event->modifiers() & ~Qt::ShiftModifier, event->text());
        if (room() >= 2)
            QPlainTextEdit::keyPressEvent(&enter);
        return;
    }
    const QString text = event->text();
    if (isCommand(*event) || text.isEmpty() || text[0].category() == QChar::Other_Control) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    QKeyEvent typed = withText(*event, event->modifiers(), CodePage::fit(text));
    if (typed.text().size() <= room()) {
        QPlainTextEdit::keyPressEvent(&typed);
        event->setAccepted(typed.isAccepted());
    }
}

void TextBoard::keyReleaseEvent(QKeyEvent *event)
{
    QPlainTextEdit::keyReleaseEvent(event);
    if (!event->isAutoRepeat())
        emit KeyUp();
}

void TextBoard::mouseReleaseEvent(QMouseEvent *event)
{
    QPlainTextEdit::mouseReleaseEvent(event);
    emit MouseUp();
}

void TextBoard::wheelEvent(QWheelEvent *event)
{
    if (!WheelSteps::isMeant(*event)) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    if (const int steps = Wheel.take(*event))
        emit SizeTurned(steps);
    event->accept();
}

void TextBoard::inputMethodEvent(QInputMethodEvent *event)
{
    const QString whole = fitted(event->commitString());
    const int replaced = std::max(0, event->replacementLength());
    const QString part = firstOf(whole, room() + replaced);
    const bool left = part.isEmpty() && !whole.isEmpty();
    QInputMethodEvent commit(event->preeditString(), event->attributes());
    commit.setCommitString(part, left ? 0 : event->replacementStart(), left ? 0 : replaced);

    // The document reports each step of a composition as a change of its contents.
    const int before = TextLength();
    {
        const QScopedValueRollback silent(Silent, true);
        QPlainTextEdit::inputMethodEvent(&commit);
    }
    event->setAccepted(commit.isAccepted());
    if (!part.isEmpty() || TextLength() != before)
        emit Change();
}

void TextBoard::dropEvent(QDropEvent *event)
{
    DropWasCut = false;
    QPlainTextEdit::dropEvent(event);
    // Where the text was dragged from it must stay if not all of it arrived here.
    if (DropWasCut) {
        const bool copies = event->possibleActions().testFlag(Qt::CopyAction);
        event->setDropAction(copies ? Qt::CopyAction : Qt::IgnoreAction);
        event->accept();
    }
}

bool TextBoard::canInsertFromMimeData(const QMimeData *source) const
{
    // A file is no text: what is done with one that is dropped here is the owner's affair.
    const QList<QUrl> urls = source->urls();
    return std::ranges::none_of(urls, &QUrl::isLocalFile) &&
           QPlainTextEdit::canInsertFromMimeData(source);
}

void TextBoard::insertFromMimeData(const QMimeData *source)
{
    DropWasCut = !insertWhatFits(source->text());
}

QMimeData *TextBoard::createMimeDataFromSelection() const
{
    auto mime = std::make_unique<QMimeData>();
    mime->setText(withLineEnds(textCursor().selectedText(), QLatin1StringView("\n")));
    return mime.release();
}

// Font, colour, alignment

void TextBoard::setFontName(const QString &name)
{
    if (name == FaceName)
        return;
    FaceName = name;
    Face = Factory(name);
    applyFont();
}

void TextBoard::setFontSize(double points)
{
    if (points <= 0)
        return;
    Points = points;
    applyFont();
}

void TextBoard::setFontBold(bool on)
{
    Bold = on;
    applyFont();
}

void TextBoard::setFontItalic(bool on)
{
    Italic = on;
    applyFont();
}

void TextBoard::setFontUnderline(bool on)
{
    Underline = on;
    applyFont();
}

void TextBoard::setFontStrikethru(bool on)
{
    Strikethru = on;
    applyFont();
}

TextBoard::FontChange::FontChange(TextBoard &board) : Board(board)
{
    ++Board.OpenFontChanges;
}

TextBoard::FontChange::~FontChange()
{
    if (--Board.OpenFontChanges == 0)
        Board.applyFont();
}

void TextBoard::applyFont()
{
    if (OpenFontChanges == 0)
        setFont(Face.drawn(Points, Bold, Italic, Underline, Strikethru));
}

QColor TextBoard::ForeColor() const
{
    return palette().color(QPalette::Active, QPalette::Text);
}

void TextBoard::setForeColor(const QColor &color)
{
    QPalette colors = palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        colors.setColor(group, QPalette::Text, color);
    setPalette(colors);
}

void TextBoard::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange)
        keepSelectionVisible();
}

void TextBoard::keepSelectionVisible()
{
    // Many desktops show a selection without the focus in a tone of their windows, which on white
    // paper can hardly be seen.
    QPalette colors = palette();
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
        colors.setColor(QPalette::Inactive, role, colors.color(QPalette::Active, role));
    if (colors != palette())
        setPalette(colors);
}

void TextBoard::setAlignment(int alignment)
{
    if (alignment == TextAlignment || alignment < 0 || alignment >= std::ssize(alignments))
        return;
    TextAlignment = alignment;
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(alignments[static_cast<std::size_t>(TextAlignment)]);
    document()->setDefaultTextOption(option);
}
