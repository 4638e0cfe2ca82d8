// Reads the help file with care, shows its page and searches it.
#include "platform/controls/HelpViewer.h"

#include "platform/RegularFile.h"
#include "platform/Shell.h"
#include "platform/controls/Accessibility.h"
#include "platform/controls/Icons.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolButton>
#include <QVBoxLayout>
#include <QXmlStreamReader>
#include <algorithm>
#include <array>

namespace {

/// The page under this address is the help text; its parts are the address and a fragment.
const QUrl ContentsAddress("help:contents");

struct Topic
{
    int Context;
    const char *Anchor;
};

/// The topics that items of the menus ask for.
constexpr Topic Topics[] = {
    {6, "contents"},
    {9, "clipboard"},
    {10, "textboard"},
    {11, "views"},
};

constexpr qint64 MostBytes = 65536;
constexpr int DeepestElement = 16;

/// A page that says why there is no help.
QString faultPage(const QString &file, const QString &fault)
{
    return "<h2>The help can't be shown</h2><p>" +
           QString("The file \u201C%1\u201D %2").arg(file, fault).toHtmlEscaped() + "</p>";
}

/// Writes the element that the reader stands at, or nothing for an end that HTML has no tag for.
QString tag(const QXmlStreamReader &reader)
{
    static constexpr std::array alone = {"br", "hr", "img", "meta"};
    const QString name = reader.name().toString();
    if (reader.isEndElement())
        return std::ranges::find(alone, name) == alone.end() ? "</" + name + '>' : QString();
    QString text = '<' + name;
    for (const QXmlStreamAttribute &attribute : reader.attributes())
        text += QString(" %1=\"%2\"")
                    .arg(attribute.name(), attribute.value().toString().toHtmlEscaped());
    return text + '>';
}

/// The same page, written anew: the toolkit's own reader of HTML takes minutes for text that is
/// nested thousands deep, or ends the program. Null if the text is no such page.
QString cleanPage(const QByteArray &bytes)
{
    QXmlStreamReader reader(bytes);
    QString page;
    int depth = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (++depth > DeepestElement)
                return {};
            page += tag(reader);
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            page += tag(reader);
            break;
        case QXmlStreamReader::Characters:
            page += reader.text().toString().toHtmlEscaped();
            break;
        case QXmlStreamReader::DTD:
            // An entity is a few bytes that stand for many.
            if (!reader.entityDeclarations().isEmpty())
                return {};
            break;
        default:
            break;
        }
    }
    return reader.hasError() ? QString() : page;
}

QString readPage(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    const RegularFile::Reading file = RegularFile::read(path, MostBytes);
    switch (file.Fault) {
    case RegularFile::Fault::NotThere:
        return faultPage(name, "is not there any more.");
    case RegularFile::Fault::NotReadable:
        return faultPage(name, "can't be read: " + file.Reason + '.');
    case RegularFile::Fault::TooLarge:
        return faultPage(name, "is too large to be a help text.");
    case RegularFile::Fault::None:
        break;
    }
    if (file.Bytes.trimmed().isEmpty())
        return faultPage(name, "is empty.");
    const QString page = cleanPage(file.Bytes);
    return page.isEmpty() ? faultPage(name, "is not a help text.") : page;
}

/// The cursor at an anchor of this name, or at the start. Not by what is under a point: for points
/// near a table the toolkit gives cells that are far away, and scrolls to them.
QTextCursor cursorAt(QTextDocument &page, const QString &anchor)
{
    QTextCursor cursor(&page);
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part)
            if (part.fragment().charFormat().anchorNames().contains(anchor)) {
                cursor.setPosition(part.fragment().position());
                return cursor;
            }
    return cursor;
}

/// Serves the help text and the program's own pictures ("icon:" and an image key); any other
/// resource that a page asks for is empty.
class PageView : public QTextBrowser
{
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl &name) override
    {
        if (type == QTextDocument::HtmlResource &&
            name.matches(ContentsAddress, QUrl::RemoveFragment))
            return Text;
        // Nothing that is null, at which the toolkit would look for a file of that name.
        if (type != QTextDocument::ImageResource)
            return QByteArray();
        QPixmap picture;
        if (name.scheme() == "icon")
            picture = Icons::icon(name.path()).pixmap(QSize(16, 16), devicePixelRatioF());
        if (picture.isNull()) {
            picture = QPixmap(1, 1);
            picture.fill(Qt::transparent);
        }
        return picture;
    }

    QString Text;
};

} // namespace

HelpViewer::HelpViewer(QWidget *parent) : QWidget(parent, Qt::Window)
{
    setObjectName("HelpViewer");
    setWindowTitle("Zendova Help");
    createControls();
    resize(QSize(700, 640).boundedTo(screen()->availableSize() * 9 / 10));

    connect(Page, &QTextBrowser::anchorClicked, this, &HelpViewer::follow);
    connect(Page, &QTextBrowser::backwardAvailable, Back, &QWidget::setEnabled);
    connect(Page, &QTextBrowser::forwardAvailable, Forward, &QWidget::setEnabled);
    connect(Back, &QToolButton::clicked, Page, &QTextBrowser::backward);
    connect(Forward, &QToolButton::clicked, Page, &QTextBrowser::forward);
    connect(Contents, &QToolButton::clicked, this, [this] { follow(ContentsAddress); });
    connect(FindText, &QLineEdit::textChanged, FindResult, &QLabel::clear);
    connect(FindText, &QLineEdit::returnPressed, this, [this] { find(false); });
    connect(Next, &QToolButton::clicked, this, [this] { find(false); });
    connect(Previous, &QToolButton::clicked, this, [this] { find(true); });
    connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, Next,
            &QToolButton::click);
    connect(new QShortcut(QKeySequence::FindPrevious, this), &QShortcut::activated, Previous,
            &QToolButton::click);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        FindText->setFocus();
        FindText->selectAll();
    });
}

void HelpViewer::createControls()
{
    Page = new PageView;
    Page->setObjectName("Page");
    Page->setAccessibleName(windowTitle());
    Page->setOpenLinks(false);
    Page->document()->setDocumentMargin(16);

    Back = makeButton("Back", "Back", "Back");
    Forward = makeButton("Forward", "Forward", "Forward");
    Contents = makeButton("Contents", "Contents", "Home");
    Back->setEnabled(false);
    Forward->setEnabled(false);
    FindText = new QLineEdit;
    FindText->setObjectName("FindText");
    FindText->setAccessibleName("Find in the help");
    FindText->setPlaceholderText("Find in the help");
    FindText->setClearButtonEnabled(true);
    FindText->addAction(Icons::icon("Find"), QLineEdit::LeadingPosition)->setText("Find");
    constexpr int beside = 64; // pixels, of the picture, the clear button and the frame
    FindText->setMinimumWidth(fontMetrics().horizontalAdvance(FindText->placeholderText()) +
                              beside);
    FindText->setMaximumWidth(std::max(220, FindText->minimumWidth()));
    Previous = makeButton("Previous", "Previous", {});
    Next = makeButton("Next", "Next", {});
    FindResult = new QLabel;
    FindResult->setObjectName("FindResult");
    FindResult->setMinimumWidth(fontMetrics().horizontalAdvance("Went on at the bottom "));

    auto *bar = new QHBoxLayout;
    bar->setContentsMargins(8, 8, 8, 8);
    for (QWidget *control : std::initializer_list<QWidget *>{Back, Forward, Contents})
        bar->addWidget(control);
    bar->addStretch();
    for (QWidget *control : std::initializer_list<QWidget *>{FindResult, FindText, Previous, Next})
        bar->addWidget(control);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(bar);
    column->addWidget(Page);
}

QToolButton *HelpViewer::makeButton(const char *name, const QString &caption,
                                    const QString &imageKey)
{
    auto *button = new QToolButton(this);
    button->setObjectName(name);
    button->setText(caption);
    button->setIcon(Icons::icon(imageKey));
    button->setToolButtonStyle(imageKey.isEmpty() ? Qt::ToolButtonTextOnly
                                                  : Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void HelpViewer::ShowContents(const QString &HelpFile)
{
    static_cast<PageView *>(Page)->Text = readPage(HelpFile);
    Page->setSource(ContentsAddress);
    Page->reload(); // the file may have changed since it was last shown
    Page->clearHistory();
    Page->setFocus();
    show();
    raise();
    activateWindow();
}

void HelpViewer::ShowContext(const QString &HelpFile, int Context)
{
    ShowContents(HelpFile); // first, as a page that was never laid out can't be scrolled
    QUrl topic = ContentsAddress;
    topic.setFragment(AnchorOf(Context));
    follow(topic);
    Page->clearHistory();
}

QString HelpViewer::AnchorOf(int Context)
{
    const auto topic = std::ranges::find(Topics, Context, &Topic::Context);
    return topic == std::end(Topics) ? QString() : topic->Anchor;
}

void HelpViewer::follow(const QUrl &link)
{
    if (link.matches(ContentsAddress, QUrl::RemoveFragment)) {
        Page->setSource(link);
        // The focus leaves the link, to which Forward would scroll otherwise, and search and Tab go
        // on from what is shown.
        Page->setTextCursor(cursorAt(*Page->document(), link.fragment()));
    } else if (link.scheme() == "https" || link.scheme() == "http" || link.scheme() == "mailto") {
        Shell::Open(link);
    }
}

void HelpViewer::find(bool backward)
{
    const QString text = FindText->text();
    if (text.isEmpty()) {
        FindText->setFocus();
        return;
    }
    const auto flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    FindResult->clear();
    if (Page->find(text, flags))
        return announce(this, Page->textCursor().block().text());
    const QTextCursor before = Page->textCursor();
    Page->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    if (Page->find(text, flags)) {
        FindResult->setText(backward ? "Went on at the bottom" : "Went on at the top");
        return announce(this, FindResult->text() + ": " + Page->textCursor().block().text());
    }
    Page->setTextCursor(before);
    FindResult->setText("Not found");
    announce(this, FindResult->text());
}

void HelpViewer::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    // The page keeps the colours of its links and pictures from when it was read.
    if (event->type() == QEvent::PaletteChange && Page && !Page->source().isEmpty()) {
        const int place = Page->verticalScrollBar()->value();
        Page->reload();
        Page->verticalScrollBar()->setValue(place);
    }
}

void HelpViewer::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}
