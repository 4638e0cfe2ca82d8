// One pass over the bytes of a document, without recursion: plain stretches are taken over in bulk,
// control words are rows of a table with their handlers. What the bytes say is bounded wherever it
// would cost memory: nested groups, fonts, colours, runs of formats.
#include "textboard/RichTextReader.h"

#include "platform/CodePage.h"

#include <QStringDecoder>
#include <array>
#include <limits>
#include <map>
#include <string_view>

namespace {

constexpr std::size_t MaxGroups = 1 << 20; ///< deeper ones are read, but restore no format
constexpr std::size_t MaxRuns = 1 << 20;
constexpr std::size_t MaxTableEntries = 1 << 16; ///< fonts, colours; the format's numbers end there
constexpr qsizetype MaxFontName = 1024;
constexpr qsizetype PendingBlock = 4096;

constexpr int Latin1Page = 1252;
constexpr quint32 DefaultFont = std::numeric_limits<quint32>::max();

/// Bytes that stand for themselves. Line ends in a document are only for its looks, and zeros only
/// pad it.
constexpr std::array<bool, 256> PlainBytes = [] {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 1; byte < 0x80; ++byte)
        plain[byte] = std::string_view("\r\n\\{}").find(char(byte)) == std::string_view::npos;
    return plain;
}();

// No function, whose address a search would call for each byte.
constexpr auto isPlain = [](char byte) { return PlainBytes[static_cast<quint8>(byte)]; };

bool isWordLetter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

int hexDigit(char byte)
{
    if (isDigit(byte))
        return byte - '0';
    const char lower = char(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The code page of a font's `\fcharset`; 0 stands for the document's.
int pageOfCharset(int charset)
{
    struct Row
    {
        int Charset, Page;
    };
    constexpr Row Rows[] = {{0, 1252},   {77, 10000}, {78, 10001}, {128, 932},  {129, 949},
                            {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
                            {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251},
                            {222, 874},  {238, 1250}, {254, 437},  {255, 850}};
    const auto row = std::ranges::find(Rows, charset, &Row::Charset);
    return row == std::end(Rows) ? 0 : row->Page;
}

QStringDecoder decoderOf(int page)
{
    const QByteArray number = QByteArray::number(page);
    for (const QByteArray &name :
         {page == 10000 ? QByteArray("macintosh") : "windows-" + number, "IBM" + number,
          page == 10007   ? QByteArray("x-mac-cyrillic")
          : page == 10001 ? QByteArray("Shift_JIS")
                          : "cp" + number}) {
        QStringDecoder decoder(name.constData());
        if (decoder.isValid())
            return decoder;
    }
    return {};
}

/// The byte is the first of two in a code page of the East.
bool isLeadByte(int page, quint8 byte)
{
    switch (page) {
    case 932:
    case 10001:
        return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    case 936:
    case 949:
    case 950:
        return byte >= 0x81 && byte <= 0xFE;
    default:
        return false;
    }
}

class Reader
{
public:
    explicit Reader(QByteArrayView source) : At(source.begin()), End(source.end()) {}

    std::optional<RichText> read();

private:
    using Number = std::optional<int>;

    /// What a control word does: a handler, and what it is told besides the word's own number.
    struct Keyword
    {
        std::string_view Name;
        void (Reader::*Act)(int of, Number number);
        int Of = 0;
        bool IsDestination = false;
    };
    static const Keyword Keywords[];

    struct Word
    {
        std::string_view Name;
        Number Parameter;
    };

    enum class Destination : quint8 { Body, FontTable, ColorTable };
    enum HiddenBit : quint8 { HiddenText = 1, DeletedText = 2 };

    /// What a group inherits, and what its end restores.
    struct State
    {
        CharacterFormat Format{.Font = DefaultFont}; ///< the font by its number in the document
        ParagraphAlignment Alignment = 0;
        Destination Into = Destination::Body;
        quint8 Hidden = 0;      ///< sum of `HiddenBit`s
        quint8 Substitutes = 1; ///< characters after a `\u` that stand for it in older readers
    };

    struct Font
    {
        QString Name;
        int Page = 0; ///< 0 for the document's
        bool Symbol = false;
        std::optional<quint32> Place; ///< in the text's list, once it is used
    };

    bool begin();
    void readToken();
    Word readWord();
    void obeyWord();
    void obeySymbol();
    void openGroup();
    void closeGroup();
    RichText finish();

    void takeStretch(const char *from, const char *to);
    void takeByte(quint8 byte);
    void takeUnicode(int number);
    void takeFontName(const char *from, const char *to);
    void decodePending();
    void flush();
    void append(const char *codes, qsizetype length);
    void endLine();
    bool isShown() const { return Now.Into == Destination::Body && !Now.Hidden; }

    Font &currentFont();
    int currentPage();
    CharacterFormat currentFormat();
    void addToName(const QString &text);
    void finishFont();

    // Handlers of control words
    void character(int code, Number);
    void lineBreak(int, Number);
    void paragraph(int, Number);
    void cell(int, Number);
    void row(int, Number);
    void style(int bit, Number number);
    void styleOff(int bit, Number);
    void hidden(int bit, Number number);
    void fontNumber(int, Number number);
    void fontSize(int, Number number);
    void color(int, Number number);
    void plain(int, Number);
    void alignment(int alignment, Number);
    void substitutes(int, Number number);
    void unicode(int, Number number);
    void binary(int, Number number);
    void documentPage(int page, Number);
    void documentPageNumber(int, Number number);
    void defaultFont(int, Number number);
    void fontCharset(int, Number number);
    void fontPage(int, Number number);
    void colorPart(int shift, Number number);
    void fontTable(int, Number);
    void colorTable(int, Number);
    void bothSpellings(int, Number);
    void passOver(int, Number);
    void showOptional(int, Number) {}

    const char *At;
    const char *End;
    bool Done = false;
    bool TooManyRuns = false;
    bool IsOptional =
        false; ///< `\*` came: a reader that doesn't know the word passes the group over

    State Now;
    std::vector<State> Saved;
    qsizetype Unsaved = 0; ///< open groups beyond `MaxGroups`
    int ToSkip = 0;        ///< characters that stand for the last `\u`

    // Characters whose code isn't settled: an accent may follow, or the second of two bytes.
    QString PendingText;
    QByteArray PendingBytes; ///< behind PendingText, in the current code page
    bool AwaitsSecondByte = false;
    std::map<int, QStringDecoder> Decoders;

    int Page = Latin1Page;
    QHash<quint32, Font> Fonts;
    Font NoFont{DefaultFontName.toString(), 0, false, {}};
    std::optional<quint32> FirstFont, DefaultNumber;
    Font *Current = nullptr; ///< the font of CurrentNumber, in Fonts or NoFont
    quint32 CurrentNumber = 0;
    std::optional<quint32> EntryNumber; ///< of the font that the table is telling
    Font Entry;

    std::vector<ColorValue> Colors;
    ColorValue EntryColor = 0;

    RichText Text;
    qsizetype LineStart = 0;
    qsizetype ClosedAt = -1; ///< where the last `\par` left off
    qsizetype CellAt = -1;   ///< where the last cell left off
    ParagraphAlignment LastAlignment = 0;
};

// By name, for the search.
constexpr Reader::Keyword Reader::Keywords[] = {
    {"annotation", &Reader::passOver, 0, true},
    {"ansi", &Reader::documentPage, 1252},
    {"ansicpg", &Reader::documentPageNumber},
    {"b", &Reader::style, BoldStyle},
    {"bin", &Reader::binary},
    {"blue", &Reader::colorPart, 16},
    {"bullet", &Reader::character, 0x95},
    {"cell", &Reader::cell},
    {"cf", &Reader::color},
    {"colortbl", &Reader::colorTable, 0, true},
    {"column", &Reader::lineBreak},
    {"cpg", &Reader::fontPage},
    {"deff", &Reader::defaultFont},
    {"deleted", &Reader::hidden, DeletedText},
    {"emdash", &Reader::character, 0x97},
    {"emspace", &Reader::character, ' '},
    {"endash", &Reader::character, 0x96},
    {"enspace", &Reader::character, ' '},
    {"f", &Reader::fontNumber},
    {"fcharset", &Reader::fontCharset},
    {"fldinst", &Reader::passOver, 0, true},
    {"fonttbl", &Reader::fontTable, 0, true},
    {"footer", &Reader::passOver, 0, true},
    {"footerf", &Reader::passOver, 0, true},
    {"footerl", &Reader::passOver, 0, true},
    {"footerr", &Reader::passOver, 0, true},
    {"footnote", &Reader::passOver, 0, true},
    {"fs", &Reader::fontSize},
    {"green", &Reader::colorPart, 8},
    {"header", &Reader::passOver, 0, true},
    {"headerf", &Reader::passOver, 0, true},
    {"headerl", &Reader::passOver, 0, true},
    {"headerr", &Reader::passOver, 0, true},
    {"i", &Reader::style, ItalicStyle},
    {"info", &Reader::passOver, 0, true},
    {"ldblquote", &Reader::character, 0x93},
    {"line", &Reader::lineBreak},
    {"listtext", &Reader::passOver, 0, true},
    {"lquote", &Reader::character, 0x91},
    {"mac", &Reader::documentPage, 10000},
    {"nestcell", &Reader::cell},
    {"nestrow", &Reader::row},
    {"nesttableprops", &Reader::showOptional, 0, true},
    {"nonesttables", &Reader::passOver, 0, true},
    {"nonshppict", &Reader::passOver, 0, true},
    {"page", &Reader::lineBreak},
    {"par", &Reader::paragraph},
    {"pard", &Reader::alignment, 0},
    {"pc", &Reader::documentPage, 437},
    {"pca", &Reader::documentPage, 850},
    {"pict", &Reader::passOver, 0, true},
    {"plain", &Reader::plain},
    {"pntext", &Reader::passOver, 0, true},
    {"qc", &Reader::alignment, 2},
    {"qd", &Reader::alignment, 0},
    {"qj", &Reader::alignment, 0},
    {"ql", &Reader::alignment, 0},
    {"qmspace", &Reader::character, ' '},
    {"qr", &Reader::alignment, 1},
    {"rdblquote", &Reader::character, 0x94},
    {"red", &Reader::colorPart, 0},
    {"row", &Reader::row},
    {"rquote", &Reader::character, 0x92},
    {"sect", &Reader::lineBreak},
    {"shprslt", &Reader::passOver, 0, true},
    {"strike", &Reader::style, StrikeThruStyle},
    {"striked", &Reader::style, StrikeThruStyle},
    {"stylesheet", &Reader::passOver, 0, true},
    {"tab", &Reader::character, '\t'},
    {"tc", &Reader::passOver, 0, true},
    {"tcn", &Reader::passOver, 0, true},
    {"u", &Reader::unicode},
    {"uc", &Reader::substitutes},
    {"ud", &Reader::showOptional, 0, true},
    {"ul", &Reader::style, UnderlineStyle},
    {"uld", &Reader::style, UnderlineStyle},
    {"uldash", &Reader::style, UnderlineStyle},
    {"uldashd", &Reader::style, UnderlineStyle},
    {"uldashdd", &Reader::style, UnderlineStyle},
    {"uldb", &Reader::style, UnderlineStyle},
    {"ulhwave", &Reader::style, UnderlineStyle},
    {"ulldash", &Reader::style, UnderlineStyle},
    {"ulnone", &Reader::styleOff, UnderlineStyle},
    {"ulth", &Reader::style, UnderlineStyle},
    {"ulthd", &Reader::style, UnderlineStyle},
    {"ulthdash", &Reader::style, UnderlineStyle},
    {"ulthdashd", &Reader::style, UnderlineStyle},
    {"ulthdashdd", &Reader::style, UnderlineStyle},
    {"ulthldash", &Reader::style, UnderlineStyle},
    {"ululdbwave", &Reader::style, UnderlineStyle},
    {"ulw", &Reader::style, UnderlineStyle},
    {"ulwave", &Reader::style, UnderlineStyle},
    {"upr", &Reader::bothSpellings, 0, true},
    {"v", &Reader::hidden, HiddenText},
    {"xe", &Reader::passOver, 0, true},
};

std::optional<RichText> Reader::read()
{
    if (!begin())
        return std::nullopt;
    Text.Codes.reserve(End - At);
    while (At != End && !Done && !TooManyRuns)
        readToken();
    if (TooManyRuns)
        return std::nullopt;
    return finish();
}

/// Goes to the opening of the document.
bool Reader::begin()
{
    std::string_view source(At, std::size_t(End - At));
    if (source.starts_with("\xEF\xBB\xBF"))
        source.remove_prefix(3);
    source.remove_prefix(std::min(source.find_first_not_of(" \t\r\n"), source.size()));
    At = source.data();
    constexpr std::string_view Opening = "{\\rtf";
    return source.starts_with(Opening) &&
           (source.size() == Opening.size() || !isWordLetter(source[Opening.size()]));
}

void Reader::readToken()
{
    const char *stop = std::find_if_not(At, End, isPlain);
    if (stop != At) {
        takeStretch(At, stop);
        IsOptional = false;
        At = stop;
        return;
    }
    switch (*At) {
    case '{':
        ++At;
        openGroup();
        break;
    case '}':
        ++At;
        closeGroup();
        break;
    case '\\':
        ++At;
        if (At != End && isWordLetter(*At))
            obeyWord();
        else if (At != End)
            obeySymbol();
        break;
    case '\r':
    case '\n':
    case '\0':
        ++At;
        break;
    default:
        takeByte(static_cast<quint8>(*At++));
    }
}

/// Reads a control word whose first letter is at hand, with its number and the blank that ends it.
Reader::Word Reader::readWord()
{
    const char *start = At;
    At = std::find_if_not(At, End, isWordLetter);
    Word word{{start, std::size_t(At - start)}, {}};
    const bool isNegative = End - At > 1 && *At == '-' && isDigit(At[1]);
    if (isNegative)
        ++At;
    if (At != End && isDigit(*At)) {
        constexpr qint64 Limit = std::numeric_limits<int>::max();
        qint64 number = 0;
        for (; At != End && isDigit(*At); ++At)
            number = std::min(number * 10 + (*At - '0'), Limit);
        word.Parameter = int(isNegative ? -number : number);
    }
    if (At != End && *At == ' ')
        ++At;
    return word;
}

void Reader::obeyWord()
{
    const Word word = readWord();
    const bool isOptional = std::exchange(IsOptional, false);
    static_assert(std::ranges::is_sorted(Keywords, {}, &Keyword::Name));
    const auto row = std::ranges::lower_bound(Keywords, word.Name, {}, &Keyword::Name);
    const bool isKnown = row != std::end(Keywords) && row->Name == word.Name;
    // A word too can stand for the character before it in older readers. Only those that are
    // characters are left out then: where the substitute is missing, nothing else may be lost.
    if (!isKnown || row->Act != &Reader::character)
        ToSkip = std::max(ToSkip - 1, 0);
    if (isOptional && !(isKnown && row->IsDestination))
        passOver(0, {});
    else if (isKnown)
        (this->*row->Act)(row->Of, word.Parameter);
}

void Reader::obeySymbol()
{
    const char symbol = *At++;
    IsOptional = symbol == '*';
    switch (symbol) {
    case '\\':
    case '{':
    case '}':
        takeStretch(At - 1, At);
        break;
    case '\'':
        if (End - At >= 2 && hexDigit(At[0]) >= 0 && hexDigit(At[1]) >= 0) {
            takeByte(quint8(hexDigit(At[0]) << 4 | hexDigit(At[1])));
            At += 2;
        }
        break;
    case '~':
        character(0xA0, {});
        break;
    case '-':
        character(0xAD, {});
        break;
    case '_':
        character('-', {});
        break;
    case '\t':
        character('\t', {});
        break;
    case '\r':
    case '\n':
        paragraph(0, {});
        break;
    default:
        break;
    }
}

void Reader::openGroup()
{
    flush();
    ToSkip = 0;
    IsOptional = false;
    if (Saved.size() < MaxGroups)
        Saved.push_back(Now);
    else
        ++Unsaved;
}

void Reader::closeGroup()
{
    flush();
    ToSkip = 0;
    IsOptional = false;
    if (Now.Into == Destination::FontTable)
        finishFont();
    if (Unsaved > 0) {
        --Unsaved;
    } else if (Saved.size() == 1) {
        Done = true;
    } else {
        Now = Saved.back();
        Saved.pop_back();
    }
}

/// Adds the end of the text to the formats, and takes back a line end that only closed the last
/// paragraph: its places become that of the end.
RichText Reader::finish()
{
    flush();
    if (ClosedAt == Text.Codes.size()) {
        Text.Codes.chop(2);
        Text.Formats.chop();
        Text.Alignments.chop();
    } else {
        const bool isEmptyLine = LineStart == Text.Codes.size();
        Text.Formats.append(1, currentFormat());
        Text.Alignments.append(Text.Codes.size() - LineStart + 1,
                               isEmptyLine ? Now.Alignment : LastAlignment);
    }
    Text.Codes.squeeze();
    return std::move(Text);
}

// Characters

/// Takes bytes that are the same in every code page.
void Reader::takeStretch(const char *from, const char *to)
{
    const auto skipped = std::min(qsizetype(ToSkip), qsizetype(to - from));
    ToSkip -= int(skipped);
    from += skipped;
    if (from == to)
        return;
    if (Now.Into == Destination::ColorTable) {
        for (; from != to; ++from)
            if (*from == ';' && Colors.size() < MaxTableEntries)
                Colors.push_back(std::exchange(EntryColor, 0));
        return;
    }
    if (std::exchange(AwaitsSecondByte, false))
        PendingBytes += *from++;
    flush();
    if (Now.Into == Destination::FontTable)
        takeFontName(from, to);
    else if (isShown())
        append(from, to - from);
}

/// Takes a byte that means what the current code page says.
void Reader::takeByte(quint8 byte)
{
    IsOptional = false;
    if (ToSkip > 0) {
        --ToSkip;
        return;
    }
    if (Now.Into == Destination::ColorTable || Now.Hidden)
        return;
    const int page = currentPage();
    const bool isOneToOne =
        Now.Into == Destination::Body && (page == Latin1Page || currentFont().Symbol);
    if ((byte < 0x80 || isOneToOne) && !AwaitsSecondByte) {
        flush();
        if (Now.Into == Destination::FontTable)
            addToName(QString(QChar(byte))); // a semicolon too, which bare would end the name
        else if (byte == '\r' || byte == '\n')
            endLine();
        else
            append(reinterpret_cast<const char *>(&byte), 1);
        return;
    }
    PendingBytes += char(byte);
    AwaitsSecondByte = !AwaitsSecondByte && isLeadByte(page, byte);
    if (PendingBytes.size() >= PendingBlock && !AwaitsSecondByte)
        flush();
}

void Reader::takeUnicode(int number)
{
    if (Now.Into == Destination::ColorTable || Now.Hidden)
        return;
    if (number < 0)
        number += 0x10000; // numbers of 16 bits are written with a sign
    const bool isText = Now.Into == Destination::Body;
    if (isText && number >= 0xF020 && number <= 0xF0FF) {
        // Where fonts of signs have the signs of their codes.
        flush();
        const char code = char(number & 0xFF);
        append(&code, 1);
        return;
    }
    if (isText && (number == '\r' || number == '\n' || number == QChar::LineSeparator ||
                   number == QChar::ParagraphSeparator)) {
        flush();
        endLine();
        return;
    }
    if (number <= 0 || number > int(QChar::LastValidCodePoint))
        return;
    decodePending();
    PendingText += QChar::fromUcs4(char32_t(number));
    if (PendingText.size() >= PendingBlock && !PendingText.back().isHighSurrogate())
        flush();
}

void Reader::takeFontName(const char *from, const char *to)
{
    while (from != to) {
        const char *stop = std::find(from, to, ';');
        addToName(QString::fromLatin1(from, stop - from));
        if (stop == to)
            return;
        finishFont();
        from = stop + 1;
    }
}

void Reader::decodePending()
{
    if (PendingBytes.isEmpty())
        return;
    const bool isIncomplete = std::exchange(AwaitsSecondByte, false);
    const int page = currentPage();
    auto decoder = Decoders.find(page);
    if (decoder == Decoders.end())
        decoder = Decoders.emplace(page, decoderOf(page)).first;
    if (page == Latin1Page || !decoder->second.isValid()) {
        PendingText += CodePage::fromBytes(PendingBytes);
    } else {
        decoder->second.resetState();
        PendingText += decoder->second.decode(PendingBytes);
    }
    if (isIncomplete)
        PendingText += u'?';
    PendingBytes.clear();
}

/// Settles what is pending. To be called before anything that follows it in the text, and before
/// the font or the destination changes.
void Reader::flush()
{
    decodePending();
    if (PendingText.isEmpty())
        return;
    QString text = std::exchange(PendingText, {});
    if (Now.Into == Destination::FontTable) {
        addToName(text);
        return;
    }
    // Marks of direction and joining show nothing; the soft hyphen is in the code page.
    text.removeIf([](QChar character) {
        return character.category() == QChar::Other_Format && character != QChar::SoftHyphen;
    });
    if (text.isEmpty())
        return;
    if (text.front().isMark() && Text.Codes.size() > LineStart && Text.Codes.back() != '\t') {
        text.prepend(CodePage::toUnicode(static_cast<quint8>(Text.Codes.back())));
        Text.Codes.chop(1);
        Text.Formats.chop();
    }
    const QByteArray codes = CodePage::toBytes(CodePage::fit(text));
    append(codes.constData(), codes.size());
}

void Reader::append(const char *codes, qsizetype length)
{
    Text.Codes.append(codes, length);
    Text.Formats.append(length, currentFormat());
    LastAlignment = Now.Alignment;
    TooManyRuns |= Text.Formats.count() > MaxRuns;
}

void Reader::endLine()
{
    const bool isEmptyLine = LineStart == Text.Codes.size();
    Text.Formats.append(2, isEmptyLine ? currentFormat() : Text.Formats.last());
    Text.Codes += "\r\n";
    Text.Alignments.append(Text.Codes.size() - LineStart, Now.Alignment);
    LineStart = Text.Codes.size();
    TooManyRuns |= Text.Formats.count() > MaxRuns || Text.Alignments.count() > MaxRuns;
}

// Fonts

Reader::Font &Reader::currentFont()
{
    if (!Current || CurrentNumber != Now.Format.Font) {
        CurrentNumber = Now.Format.Font;
        auto found = Fonts.find(CurrentNumber);
        if (found == Fonts.end() && DefaultNumber)
            found = Fonts.find(*DefaultNumber);
        if (found == Fonts.end() && FirstFont)
            found = Fonts.find(*FirstFont);
        Current = found == Fonts.end() ? &NoFont : &*found;
    }
    return *Current;
}

int Reader::currentPage()
{
    const Font &font = Now.Into == Destination::FontTable ? Entry : currentFont();
    return font.Page != 0 ? font.Page : Page;
}

CharacterFormat Reader::currentFormat()
{
    Font &font = currentFont();
    if (!font.Place)
        font.Place = Text.fontPlace(font.Name, font.Symbol);
    CharacterFormat format = Now.Format;
    format.Font = *font.Place;
    return format;
}

void Reader::addToName(const QString &text)
{
    if (Entry.Name.size() + text.size() <= MaxFontName)
        Entry.Name += text;
}

void Reader::finishFont()
{
    const bool isUsable =
        EntryNumber && !Entry.Name.isEmpty() &&
        (Fonts.size() < qsizetype(MaxTableEntries) || Fonts.contains(*EntryNumber));
    if (isUsable) {
        FirstFont = FirstFont.value_or(*EntryNumber);
        Fonts.insert(*EntryNumber, Entry);
        Current = nullptr;
    }
    Entry.Name.clear();
}

// Handlers

void Reader::character(int code, Number)
{
    if (ToSkip > 0) {
        --ToSkip;
        return;
    }
    flush();
    const char byte = char(code);
    if (isShown())
        append(&byte, 1);
}

void Reader::lineBreak(int, Number)
{
    ToSkip = 0;
    flush();
    if (isShown())
        endLine();
}

void Reader::paragraph(int, Number)
{
    const qsizetype before = LineStart;
    lineBreak(0, {});
    if (LineStart != before)
        ClosedAt = LineStart;
}

void Reader::cell(int, Number)
{
    character('\t', {});
    CellAt = Text.Codes.size();
}

/// Tabs stand between cells, so that of the last one goes.
void Reader::row(int, Number)
{
    flush();
    if (isShown() && CellAt == Text.Codes.size() && Text.Codes.endsWith('\t')) {
        Text.Codes.chop(1);
        Text.Formats.chop();
    }
    lineBreak(0, {});
}

void Reader::style(int bit, Number number)
{
    flush();
    if (number == 0)
        Now.Format.Styles &= quint8(~bit);
    else
        Now.Format.Styles |= quint8(bit);
}

void Reader::styleOff(int bit, Number)
{
    style(bit, 0);
}

void Reader::hidden(int bit, Number number)
{
    flush();
    if (number == 0)
        Now.Hidden &= quint8(~bit);
    else
        Now.Hidden |= quint8(bit);
}

void Reader::fontNumber(int, Number number)
{
    flush();
    if (Now.Into == Destination::FontTable) {
        finishFont();
        EntryNumber = quint32(number.value_or(0));
        Entry = {};
    } else {
        Now.Format.Font = quint32(number.value_or(0));
    }
}

void Reader::fontSize(int, Number number)
{
    flush();
    const int halfPoints = number.value_or(0);
    Now.Format.HalfPoints = halfPoints > 0 ? quint16(std::min(halfPoints, MaxHalfPoints))
                                           : CharacterFormat().HalfPoints;
}

void Reader::color(int, Number number)
{
    flush();
    const auto index = std::size_t(std::max(number.value_or(0), 0));
    Now.Format.Color = index < Colors.size() ? Colors[index] : 0;
}

void Reader::plain(int, Number)
{
    flush();
    Now.Format = {.Font = DefaultFont};
    Now.Hidden = 0;
}

void Reader::alignment(int alignment, Number)
{
    Now.Alignment = ParagraphAlignment(alignment);
}

void Reader::substitutes(int, Number number)
{
    Now.Substitutes = quint8(std::clamp(number.value_or(1), 0, 255));
}

void Reader::unicode(int, Number number)
{
    takeUnicode(number.value_or(0));
    ToSkip = Now.Substitutes;
}

void Reader::binary(int, Number number)
{
    At += std::clamp(qsizetype(number.value_or(0)), qsizetype(0), qsizetype(End - At));
}

void Reader::documentPage(int page, Number)
{
    Page = page;
}

void Reader::documentPageNumber(int, Number number)
{
    if (number.value_or(0) > 0)
        Page = *number;
}

void Reader::defaultFont(int, Number number)
{
    DefaultNumber = quint32(number.value_or(0));
    Current = nullptr;
}

void Reader::fontCharset(int, Number number)
{
    flush();
    Entry.Symbol = number == 2;
    Entry.Page = pageOfCharset(number.value_or(0));
}

void Reader::fontPage(int, Number number)
{
    flush();
    Entry.Page = std::max(number.value_or(0), 0);
}

void Reader::colorPart(int shift, Number number)
{
    EntryColor |= std::clamp(number.value_or(0), 0, 255) << shift;
}

void Reader::fontTable(int, Number)
{
    flush();
    Now.Into = Destination::FontTable;
    EntryNumber.reset();
    Entry = {};
}

void Reader::colorTable(int, Number)
{
    flush();
    Now.Into = Destination::ColorTable;
    Colors.clear();
    EntryColor = 0;
}

/// Of a text in two spellings the first, for readers without Unicode, is passed over.
void Reader::bothSpellings(int, Number)
{
    At = std::find_if_not(At, End, [](char byte) { return byte == '\r' || byte == '\n'; });
    if (At == End || *At != '{')
        return;
    ++At;
    passOver(0, {});
    if (At != End)
        ++At;
}

/// Goes to the end of the group.
void Reader::passOver(int, Number)
{
    const auto isStructure = [](char byte) { return byte == '\\' || byte == '{' || byte == '}'; };
    for (qsizetype depth = 1; (At = std::find_if(At, End, isStructure)) != End;) {
        if (*At == '}' && --depth == 0)
            return;
        depth += *At == '{';
        if (*At++ != '\\' || At == End)
            continue;
        if (!isWordLetter(*At))
            ++At;
        else if (const Word word = readWord(); word.Name == "bin")
            binary(0, word.Parameter);
    }
}

} // namespace

std::optional<RichText> readRichText(QByteArrayView source)
{
    return Reader(source).read();
}
