// Finds the places in the text where something has to be put or changed, and touches nothing else:
// a reader that writes all of it again would not keep what other programs wrote as they wrote it.
#include "platform/BookmarkFile.h"

#include <QStringDecoder>
#include <QXmlStreamReader>
#include <algorithm>
#include <array>
#include <functional>
#include <utility>
#include <vector>

namespace {

constexpr auto EmptyList = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<xbel version=\"1.0\"\n"
                           "      xmlns:bookmark=\"%1\"\n"
                           "      xmlns:mime=\"%2\"\n"
                           ">\n</xbel>\n";
const QString BookmarkSpace =
    QStringLiteral("http://www.freedesktop.org/standards/desktop-bookmarks");
const QString MimeSpace = QStringLiteral("http://www.freedesktop.org/standards/shared-mime-info");
const QString Owner = QStringLiteral("http://freedesktop.org");
const QString Program = QStringLiteral("Zendova");

/// The text can't be understood.
struct Damaged
{
};

/// What may stand in an address stands for itself, as other programs write it.
QString addressOf(const QByteArray &path)
{
    return "file://" + QString::fromLatin1(path.toPercentEncoding("/!$&'()*+,:=@"));
}

bool isAddressOf(const QByteArray &path, QStringView address)
{
    constexpr QStringView scheme = u"file://";
    return address.startsWith(scheme) &&
           QByteArray::fromPercentEncoding(address.sliced(scheme.size()).toUtf8()) == path;
}

using Attribute = std::pair<QString, QString>;
using Attributes = std::vector<Attribute>;

QString startTag(const QString &name, const Attributes &attributes)
{
    QString tag = '<' + name;
    for (const auto &[attribute, value] : attributes) {
        QString escaped = value.toHtmlEscaped();
        for (const char16_t blank : {u'\t', u'\n', u'\r'}) // else read back as a space
            escaped.replace(blank, QString("&#%1;").arg(int(blank)));
        tag += ' ' + attribute + "=\"" + escaped + '"';
    }
    return tag + '>';
}

/// The start tag that the reader stands at, with these attributes changed or added.
QString changedTag(const QXmlStreamReader &xml, const Attributes &changes)
{
    Attributes attributes;
    for (const QXmlStreamNamespaceDeclaration &space : xml.namespaceDeclarations())
        attributes.emplace_back(space.prefix().isEmpty() ? QString("xmlns")
                                                         : "xmlns:" + space.prefix().toString(),
                                space.namespaceUri().toString());
    for (const QXmlStreamAttribute &attribute : xml.attributes())
        attributes.emplace_back(attribute.qualifiedName().toString(), attribute.value().toString());
    for (const Attribute &change : changes) {
        const auto old = std::ranges::find(attributes, change.first, &Attribute::first);
        if (old == attributes.end())
            attributes.push_back(change);
        else
            old->second = change.second;
    }
    return startTag(xml.qualifiedName().toString(), attributes);
}

/// The way from the root to what this program says of a document, each in the one before.
enum Kind { Root, Bookmark, Info, Metadata, Applications, Application, Other };

/// An element by its places in the text; without a name while there is none.
struct Element
{
    QString Name; ///< with its prefix
    qsizetype Begin = 0;
    qsizetype Content = 0; ///< behind the start tag
    qsizetype End = 0;     ///< of the content
};

class List
{
public:
    List(QString text, const BookmarkFile::Use &use) : Text(std::move(text)), Entered(use) {}

    /// Throws Damaged.
    QString entered()
    {
        read();
        if (!isThere(Application))
            addApplication();
        std::ranges::sort(Changes, std::greater(), &Change::Begin);
        for (const Change &change : std::as_const(Changes))
            Text.replace(change.Begin, change.Length, change.By);
        return Text;
    }

private:
    struct Change
    {
        qsizetype Begin;
        qsizetype Length;
        QString By;
    };

    bool isThere(Kind kind) const { return !Places.at(kind).Name.isEmpty(); }
    bool isEmptyTag(const Element &element) const { return Text[element.Content - 2] == '/'; }

    void read()
    {
        QXmlStreamReader xml(Text);
        std::vector<Kind> open;
        for (qsizetype from = 0; !xml.atEnd(); from = xml.characterOffset()) {
            xml.readNext();
            // The text was taken for UTF-8; and what entities stand for is counted with the places,
            // but is not in the text.
            const QStringView encoding = xml.documentEncoding();
            const bool isOther =
                !encoding.isEmpty() && encoding.compare(u"UTF-8", Qt::CaseInsensitive) != 0;
            if (isOther || !xml.entityDeclarations().isEmpty())
                throw Damaged();
            if (xml.isStartElement()) {
                const Kind ofRoot = xml.name() == u"xbel" ? Root : Other;
                open.push_back(open.empty() ? ofRoot : kindOf(xml, open.back()));
                if (open.back() != Other)
                    start(open.back(), xml, from);
            } else if (xml.isEndElement()) {
                if (open.back() != Other && !isEmptyTag(Places.at(open.back())))
                    Places.at(open.back()).End = tagBehind(from);
                open.pop_back();
            }
        }
        if (xml.hasError() || !isThere(Root))
            throw Damaged();
    }

    /// Of an element in one of the kind `parent`. The first of each kind counts.
    Kind kindOf(const QXmlStreamReader &xml, Kind parent) const
    {
        const QXmlStreamAttributes attributes = xml.attributes();
        const bool isOfDesktop = xml.namespaceUri() == BookmarkSpace;
        const auto is = [&](Kind kind, QStringView name, bool isWanted = true) {
            return parent == kind - 1 && xml.name() == name && isWanted && !isThere(kind);
        };
        if (is(Bookmark, u"bookmark", isAddressOf(Entered.Path, attributes.value("href"))))
            return Bookmark;
        if (is(Info, u"info"))
            return Info;
        if (is(Metadata, u"metadata", attributes.value("owner") == Owner))
            return Metadata;
        if (is(Applications, u"applications", isOfDesktop))
            return Applications;
        if (is(Application, u"application", isOfDesktop && attributes.value("name") == Program))
            return Application;
        return Other;
    }

    void start(Kind kind, const QXmlStreamReader &xml, qsizetype from)
    {
        Element &element = Places.at(kind);
        element = {.Name = xml.qualifiedName().toString(),
                   .Begin = kind == Root ? 0 : tagBehind(from), // of no use there
                   .Content = xml.characterOffset()};
        if (kind == Root)
            RootSpaces = xml.namespaceDeclarations();
        if (kind == Bookmark)
            replaceTag(element,
                       changedTag(xml, {{"modified", Entered.Time}, {"visited", Entered.Time}}));
        if (kind == Application) {
            const int count = xml.attributes().value("count").toInt();
            replaceTag(element, changedTag(xml, {{"modified", Entered.Time},
                                                 {"count", QString::number(count + 1)}}));
        }
    }

    /// The place of a tag behind a token that ended at `from`, or before it: the reader may have
    /// taken the tag's first character together with the text in front of it.
    qsizetype tagBehind(qsizetype from) const
    {
        const qsizetype place = Text.indexOf('<', std::max<qsizetype>(from - 1, 0));
        if (place < 0)
            throw Damaged();
        return place;
    }

    void replaceTag(const Element &element, const QString &tag)
    {
        const qsizetype closing = isEmptyTag(element) ? 2 : 1;
        Changes.push_back(
            {element.Begin, element.Content - closing - element.Begin, tag.chopped(1)});
    }

    /// With what it stands in, as far as that is not there.
    void addApplication()
    {
        const Attributes nothing;
        const std::array<std::pair<QString, Attributes>, Application> around = {{
            {},
            {"bookmark",
             {{"href", addressOf(Entered.Path)},
              {"added", Entered.Time},
              {"modified", Entered.Time},
              {"visited", Entered.Time}}},
            {"info", nothing},
            {"metadata", {{"owner", Owner}}},
            {"bookmark:applications", declaration("bookmark", BookmarkSpace)},
        }};
        Attributes application = declaration("bookmark", BookmarkSpace);
        application.insert(application.end(), {{"name", Program},
                                               {"exec", "'zendova %f'"},
                                               {"modified", Entered.Time},
                                               {"count", "1"}});
        Attributes type = declaration("mime", MimeSpace);
        type.emplace_back("type", Entered.MimeType);

        QString content = line(Application, emptyTag("bookmark:application", application));
        int kind = Applications;
        for (; !isThere(Kind(kind)); --kind) {
            if (kind == Metadata)
                content.prepend(line(Applications, emptyTag("mime:mime-type", type)));
            const auto &[name, attributes] = around.at(kind);
            content =
                line(kind, startTag(name, attributes)) + content + line(kind, "</" + name + '>');
        }
        append(Places.at(kind), content);
    }

    static QString line(int kind, const QString &tag)
    {
        return QString(2 * kind, ' ') + tag + '\n';
    }
    static QString emptyTag(const QString &name, const Attributes &attributes)
    {
        return startTag(name, attributes).chopped(1) + "/>";
    }

    /// Of a prefix, where the root has none.
    Attributes declaration(const QString &prefix, const QString &space) const
    {
        if (RootSpaces.contains(QXmlStreamNamespaceDeclaration(prefix, space)))
            return {};
        return {{"xmlns:" + prefix, space}};
    }

    void append(const Element &element, const QString &content)
    {
        if (isEmptyTag(element))
            return Changes.push_back(
                {element.Content - 2, 2, ">\n" + content + "</" + element.Name + '>'});
        // In front of the blanks that indent the end tag.
        qsizetype place = element.End;
        while (Text[place - 1] == ' ' || Text[place - 1] == '\t')
            --place;
        Changes.push_back({Text[place - 1] == '\n' ? place : element.End, 0, content});
    }

    QString Text;
    const BookmarkFile::Use &Entered;
    std::array<Element, Other> Places;
    QXmlStreamNamespaceDeclarations RootSpaces;
    std::vector<Change> Changes;
};

} // namespace

std::optional<QByteArray> BookmarkFile::entered(const QByteArray &file, const Use &use)
try {
    QStringDecoder decode(QStringDecoder::Utf8);
    QString text = decode(file);
    if (decode.hasError())
        return std::nullopt;
    if (text.isEmpty())
        text = QString(EmptyList).arg(BookmarkSpace, MimeSpace);
    return List(text, use).entered().toUtf8();
} catch (const Damaged &) {
    return std::nullopt;
}
