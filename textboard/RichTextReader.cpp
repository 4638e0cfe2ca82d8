// Goes over a document's tokens once, with the state of the group at hand and that of the groups
// around it. A control word is a row of a table with its handler. What would cost memory is
// bounded.
#include "textboard/RichTextReader.h"

#include "platform/CodePage.h"
#include "textboard/DocumentCodePage.h"
#include "textboard/PendingCharacters.h"
#include "textboard/RichTextBuilder.h"
#include "textboard/RichTextFonts.h"
#include "textboard/RichTextScanner.h"

#include <limits>

namespace {

constexpr std::size_t MaxGroups = 1 << 20; ///< deeper ones are read, but restore no format
constexpr char16_t SoftHyphen = 0xAD;
constexpr std::size_t MaxColors = 1 << 16;

/// What `\deff` says; no document can give this number to a font.
constexpr quint32 DefaultFont = std::numeric_limits<quint32>::max();

/// Destinations that are read also where a reader might pass them over, by name for the search.
constexpr std::string_view Destinations[] = {"colortbl", "fonttbl", "nesttableprops", "ud", "upr"};

/// Destinations that hold no running text.
constexpr std::string_view PassedOver[] = {
    "annotation", "fldinst",      "footer",     "footerf", "footerl", "footerr",
    "footnote",   "header",       "headerf",    "headerl", "headerr", "info",
    "listtext",   "nonesttables", "nonshppict", "pict",    "pntext",  "shprslt",
    "stylesheet", "tc",           "tcn",        "xe"};

/// All kinds of lines under the text but the plain one.
constexpr std::string_view Underlines[] = {
    "uld",   "uldash",   "uldashd",   "uldashdd",   "uldb",      "ulhwave",    "ulldash", "ulth",
    "ulthd", "ulthdash", "ulthdashd", "ulthdashdd", "ulthldash", "ululdbwave", "ulw",     "ulwave"};

/// The character of a `\u`, whose number has a sign where it is one of 16 bits. Nothing where there
/// is no such character.
std::optional<char32_t> codePointOf(int number)
{
    if (number < 0)
        number += 0x10000;
    if (number <= 0 || number > int(QChar::LastValidCodePoint))
        return std::nullopt;
    return char32_t(number);
}

class Reader
{
public:
    explicit Reader(QByteArrayView source) : Source(source), Text(source.size()) {}

    std::optional<RichText> read();

private:
    using Number = std::optional<int>;

    /// What a control word does: a handler, and what it is told besides the word's own number.
    struct Keyword
    {
        std::string_view Name;
        void (Reader::*Act)(int of, Number number);
        int Of = 0;
    };
    static const Keyword Keywords[];
    static Keyword keyword(std::string_view name);

    enum class Destination : quint8 { Body, FontTable, ColorTable };
    enum LineBreak { LineEnd, ParagraphEnd, CellEnd, RowEnd };
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

    void obey(const RichTextToken &token);
    void obeyWord(const RichTextToken &word);
    void obeySymbol(char symbol);
    void openGroup();
    void closeGroup();

    void takeStretch(std::string_view stretch);
    void takeByte(quint8 byte);
    void takeUnicode(char32_t number);
    void settleUnspelled(const RichTextToken &next);
    void takeFontName(std::string_view stretch);
    void takeColors(std::string_view stretch);
    void appendCode(quint8 code);
    void flush();

    bool isShown() const { return Now.Into == Destination::Body && !Now.Hidden; }
    int currentPage();
    RichTextLook currentLook();

    // Handlers of control words
    void character(int code, Number);
    void lineBreak(int end, Number);
    void style(int bit, Number number);
    void styleOff(int bit, Number) { style(bit, 0); }
    void hidden(int bit, Number number);
    void fontNumber(int, Number number);
    void fontSize(int, Number number);
    void color(int, Number number);
    void plain(int, Number);
    void alignment(int alignment, Number) { Now.Alignment = ParagraphAlignment(alignment); }
    void substitutes(int, Number number);
    void unicode(int, Number number);
    void binary(int, Number number) { Source.skipBytes(number.value_or(0)); }
    void documentPage(int page, Number) { Page = page; }
    void documentPageNumber(int, Number number);
    void defaultFont(int, Number number) { Fonts.setDefault(quint32(number.value_or(0))); }
    void fontCharset(int, Number number) { Fonts.setCharset(number.value_or(0)); }
    void fontPage(int, Number number) { Fonts.setPage(std::max(number.value_or(0), 0)); }
    void colorPart(int shift, Number number);
    void fontTable(int, Number);
    void colorTable(int, Number);
    /// Of a text in two spellings the first, for readers without Unicode, is passed over.
    void bothSpellings(int, Number) { Source.skipNextGroup(); }
    void passOver(int, Number) { Source.skipRestOfGroup(); }

    RichTextScanner Source;
    bool IsClosed = false;    ///< the document's own group
    bool IsBrokenOff = false; ///< the bytes ended before
    bool IsOptional = false;  ///< `\*` came: who doesn't know the next word passes the group over

    State Now;
    std::vector<State> Saved;
    qsizetype Unsaved = 0; ///< open groups beyond `MaxGroups`
    int ToSkip = 0;        ///< characters that stand for the last `\u`
    std::optional<char32_t>
        Unspelled; ///< of the last `\u`, whose substitute in the document is awaited

    PendingCharacters Pending; ///< in the current code page
    int Page = CodePage::Western;
    RichTextFonts Fonts;
    std::vector<ColorValue> Colors;
    ColorValue ColorEntry = 0; ///< what is told of the next one

    RichTextBuilder Text;
};

// By name, for the search.
constexpr Reader::Keyword Reader::Keywords[] = {
    {"ansi", &Reader::documentPage, CodePage::Western},
    {"ansicpg", &Reader::documentPageNumber},
    {"b", &Reader::style, BoldStyle},
    {"bin", &Reader::binary},
    {"blue", &Reader::colorPart, 16},
    {"bullet", &Reader::character, 0x95},
    {"cell", &Reader::lineBreak, CellEnd},
    {"cf", &Reader::color},
    {"colortbl", &Reader::colorTable},
    {"column", &Reader::lineBreak, LineEnd},
    {"cpg", &Reader::fontPage},
    {"deff", &Reader::defaultFont},
    {"deleted", &Reader::hidden, DeletedText},
    {"emdash", &Reader::character, 0x97},
    {"emspace", &Reader::character, ' '},
    {"endash", &Reader::character, 0x96},
    {"enspace", &Reader::character, ' '},
    {"f", &Reader::fontNumber},
    {"fcharset", &Reader::fontCharset},
    {"fonttbl", &Reader::fontTable},
    {"fs", &Reader::fontSize},
    {"green", &Reader::colorPart, 8},
    {"i", &Reader::style, ItalicStyle},
    {"ldblquote", &Reader::character, 0x93},
    {"line", &Reader::lineBreak, LineEnd},
    {"lquote", &Reader::character, 0x91},
    {"mac", &Reader::documentPage, 10000},
    {"nestcell", &Reader::lineBreak, CellEnd},
    {"nestrow", &Reader::lineBreak, RowEnd},
    {"page", &Reader::lineBreak, LineEnd},
    {"par", &Reader::lineBreak, ParagraphEnd},
    {"pard", &Reader::alignment, 0},
    {"pc", &Reader::documentPage, 437},
    {"pca", &Reader::documentPage, 850},
    {"plain", &Reader::plain},
    {"qc", &Reader::alignment, 2},
    {"qd", &Reader::alignment, 0},
    {"qj", &Reader::alignment, 0},
    {"qk", &Reader::alignment, 0},
    {"ql", &Reader::alignment, 0},
    {"qmspace", &Reader::character, ' '},
    {"qr", &Reader::alignment, 1},
    {"qt", &Reader::alignment, 0},
    {"rdblquote", &Reader::character, 0x94},
    {"red", &Reader::colorPart, 0},
    {"row", &Reader::lineBreak, RowEnd},
    {"rquote", &Reader::character, 0x92},
    {"sect", &Reader::lineBreak, LineEnd},
    {"strike", &Reader::style, StrikeThruStyle},
    {"striked", &Reader::style, StrikeThruStyle},
    {"tab", &Reader::character, '\t'},
    {"u", &Reader::unicode},
    {"uc", &Reader::substitutes},
    {"ul", &Reader::style, UnderlineStyle},
    {"ulnone", &Reader::styleOff, UnderlineStyle},
    {"upr", &Reader::bothSpellings},
    {"v", &Reader::hidden, HiddenText},
};

/// The row of a word; without a handler if nothing is to be done.
Reader::Keyword Reader::keyword(std::string_view name)
{
    static_assert(std::ranges::is_sorted(Keywords, {}, &Keyword::Name) &&
                  std::ranges::is_sorted(Destinations) && std::ranges::is_sorted(PassedOver) &&
                  std::ranges::is_sorted(Underlines));
    const auto row = std::ranges::lower_bound(Keywords, name, {}, &Keyword::Name);
    if (row != std::end(Keywords) && row->Name == name)
        return *row;
    if (std::ranges::binary_search(PassedOver, name))
        return {name, &Reader::passOver};
    if (std::ranges::binary_search(Underlines, name))
        return {name, &Reader::style, UnderlineStyle};
    return {name, nullptr};
}

std::optional<RichText> Reader::read()
{
    if (!Source.begin())
        return std::nullopt;
    while (!IsClosed && !IsBrokenOff && !Text.hasTooManyRuns())
        obey(Source.next());
    if (IsBrokenOff || Text.hasTooManyRuns())
        return std::nullopt;
    return Text.finish(currentLook());
}

void Reader::obey(const RichTextToken &token)
{
    if (token.Kind != RichTextToken::Word)
        IsOptional = false;
    if (Unspelled)
        settleUnspelled(token);
    switch (token.Kind) {
    case RichTextToken::End:
        IsBrokenOff = true;
        break;
    case RichTextToken::OpenGroup:
        openGroup();
        break;
    case RichTextToken::CloseGroup:
        closeGroup();
        break;
    case RichTextToken::Stretch:
        takeStretch(token.Text);
        break;
    case RichTextToken::Byte:
        takeByte(token.Code);
        break;
    case RichTextToken::Symbol:
        obeySymbol(char(token.Code));
        break;
    case RichTextToken::Word:
        obeyWord(token);
        break;
    }
}

void Reader::obeyWord(const RichTextToken &word)
{
    const Keyword row = keyword(word.Text);
    // A word too can stand for the character before it in older readers. Only those that are
    // characters are left out then: where the substitute is missing, nothing else may be lost.
    if (row.Act != &Reader::character)
        ToSkip = std::max(ToSkip - 1, 0);
    if (row.Act != &Reader::unicode)
        flush();
    if (std::exchange(IsOptional, false) && !std::ranges::binary_search(Destinations, word.Text))
        passOver(0, {});
    else if (row.Act)
        (this->*row.Act)(row.Of, word.Number);
}

void Reader::obeySymbol(char symbol)
{
    switch (symbol) {
    case '*':
        IsOptional = true;
        break;
    case '~':
        character(0xA0, {});
        break;
    case '-':
        if (CodePage::toUnicode(SoftHyphen) == SoftHyphen) // Thai has a letter there
            character(SoftHyphen, {});
        break;
    case '_':
        character('-', {});
        break;
    case '\t':
        character('\t', {});
        break;
    case '\n':
        lineBreak(ParagraphEnd, {});
        break;
    default:
        break;
    }
}

void Reader::openGroup()
{
    flush();
    ToSkip = 0;
    if (Saved.size() < MaxGroups)
        Saved.push_back(Now);
    else
        ++Unsaved;
}

void Reader::closeGroup()
{
    flush();
    ToSkip = 0;
    if (Now.Into == Destination::FontTable)
        Fonts.finishFont();
    if (Unsaved > 0) {
        --Unsaved;
    } else if (Saved.size() == 1) {
        IsClosed = true; // and the document's last formats stay in force
    } else {
        Now = Saved.back();
        Saved.pop_back();
    }
}

// Characters

/// Takes bytes that are the same in every code page.
void Reader::takeStretch(std::string_view stretch)
{
    const std::size_t skipped = std::min(std::size_t(ToSkip), stretch.size());
    ToSkip -= int(skipped);
    stretch.remove_prefix(skipped);
    if (stretch.empty())
        return;
    if (Pending.awaitsSecondByte() && DocumentCodePage::isTrailByte(quint8(stretch.front()))) {
        Pending.add(quint8(stretch.front()), currentPage());
        stretch.remove_prefix(1);
    }
    flush();
    if (Now.Into == Destination::ColorTable)
        takeColors(stretch);
    else if (Now.Into == Destination::FontTable)
        takeFontName(stretch);
    else if (isShown())
        Text.append(stretch.data(), qsizetype(stretch.size()), currentLook());
}

/// Takes a byte that means what the current code page says.
void Reader::takeByte(quint8 byte)
{
    if (ToSkip > 0) {
        --ToSkip;
        return;
    }
    if (Now.Into == Destination::ColorTable || Now.Hidden)
        return;
    const int page = currentPage();
    const bool isOneToOne = Now.Into == Destination::Body &&
                            (page == CodePage::number() || Fonts.font(Now.Format.Font).Symbol);
    if (Pending.awaitsSecondByte() && !DocumentCodePage::isTrailByte(byte))
        flush(); // a line end would get into the text undecoded
    if (Pending.awaitsSecondByte() || (byte >= 0x80 && !isOneToOne)) {
        Pending.add(byte, page);
        if (Pending.isFull())
            flush();
        return;
    }
    flush();
    if (Now.Into == Destination::FontTable)
        Fonts.addToName(QString(QChar(byte))); // a semicolon too, which bare would end the name
    else
        appendCode(byte);
}

void Reader::takeUnicode(char32_t number)
{
    if (Now.Into == Destination::ColorTable || Now.Hidden)
        return;
    // Fonts of signs have their signs in the private area, each at its code.
    const bool isSign = number >= 0xF020 && number <= 0xF0FF;
    const bool isLineEnd = number == '\r' || number == '\n' || number == QChar::LineSeparator ||
                           number == QChar::ParagraphSeparator;
    if (Now.Into == Destination::Body && (isSign || isLineEnd)) {
        flush();
        appendCode(isSign ? quint8(number & 0xFF) : quint8('\n'));
        return;
    }
    Pending.add(number, currentPage());
    if (Pending.isFull())
        flush();
}

void Reader::takeFontName(std::string_view stretch)
{
    while (!stretch.empty()) {
        const std::size_t length = std::min(stretch.find(';'), stretch.size());
        Fonts.addToName(QString::fromLatin1(stretch.data(), qsizetype(length)));
        if (length == stretch.size())
            return;
        Fonts.finishFont();
        stretch.remove_prefix(length + 1);
    }
}

void Reader::takeColors(std::string_view stretch)
{
    for (const char byte : stretch)
        if (byte == ';' && Colors.size() < MaxColors)
            Colors.push_back(std::exchange(ColorEntry, 0));
}

/// Adds a code of the text's own page to the body.
void Reader::appendCode(quint8 code)
{
    const char byte = char(code);
    if (byte == '\r' || byte == '\n')
        Text.endLine(currentLook());
    else
        Text.append(&byte, 1, currentLook());
}

/// Settles what is pending. To be called before anything that follows it in the text, and before
/// the font, the code page or the destination changes.
void Reader::flush()
{
    if (Pending.isEmpty())
        return;
    const QString text = Pending.take(currentPage());
    if (Now.Into == Destination::FontTable)
        Fonts.addToName(text);
    else
        Text.append(text, currentLook());
}

int Reader::currentPage()
{
    const int page =
        Now.Into == Destination::FontTable ? Fonts.pageOfName() : Fonts.font(Now.Format.Font).Page;
    return page != 0 ? page : Page;
}

RichTextLook Reader::currentLook()
{
    RichTextFonts::Font &font = Fonts.font(Now.Format.Font);
    if (!font.Place)
        font.Place = Text.fontPlace(font.Name, font.Symbol);
    RichTextLook look{Now.Format, Now.Alignment};
    look.Format.Font = *font.Place;
    return look;
}

// Handlers

void Reader::character(int code, Number)
{
    if (ToSkip > 0) {
        --ToSkip;
        return;
    }
    flush();
    if (isShown())
        appendCode(quint8(code));
}

void Reader::lineBreak(int end, Number)
{
    constexpr void (RichTextBuilder::*Ends[])(const RichTextLook &) = {
        &RichTextBuilder::endLine, &RichTextBuilder::closeParagraph, &RichTextBuilder::endCell,
        &RichTextBuilder::endRow}; // by LineBreak
    flush();
    ToSkip = 0;
    if (isShown())
        (Text.*Ends[end])(currentLook());
}

void Reader::style(int bit, Number number)
{
    if (number == 0)
        Now.Format.Styles &= quint8(~bit);
    else
        Now.Format.Styles |= quint8(bit);
}

void Reader::hidden(int bit, Number number)
{
    if (number == 0)
        Now.Hidden &= quint8(~bit);
    else
        Now.Hidden |= quint8(bit);
}

void Reader::fontNumber(int, Number number)
{
    const auto font = quint32(std::max(number.value_or(0), 0));
    if (Now.Into != Destination::FontTable) {
        Now.Format.Font = font;
        return;
    }
    Fonts.finishFont();
    Fonts.beginFont(font);
}

void Reader::fontSize(int, Number number)
{
    const int halfPoints = number.value_or(0);
    Now.Format.HalfPoints = halfPoints > 0 ? quint16(std::min(halfPoints, MaxHalfPoints))
                                           : CharacterFormat().HalfPoints;
}

void Reader::color(int, Number number)
{
    const auto index = std::size_t(std::max(number.value_or(0), 0));
    Now.Format.Color = index < Colors.size() ? Colors[index] : 0;
}

void Reader::plain(int, Number)
{
    Now.Format = {.Font = DefaultFont};
    Now.Hidden = 0;
}

void Reader::substitutes(int, Number number)
{
    Now.Substitutes = quint8(std::clamp(number.value_or(1), 0, 255));
}

void Reader::unicode(int, Number number)
{
    const std::optional<char32_t> character = codePointOf(number.value_or(0));
    if (!character)
        return; // what follows is all that there is
    // For what the code page can't spell the document's own substitute, which follows, comes before
    // a question mark. Halves of a pair have one each, of which neither stands for the character.
    const bool isLetter = !QChar::isMark(*character) && !QChar::isSurrogate(*character) &&
                          QChar::category(*character) != QChar::Other_PrivateUse &&
                          *character != U'?';
    if (Now.Substitutes > 0 && isShown() && isLetter &&
        CodePage::fit(QString::fromUcs4(&*character, 1)) == u"?") {
        Unspelled = character;
        Text.noteSubstitute();
        return;
    }
    takeUnicode(*character);
    ToSkip = Now.Substitutes;
}

/// What follows is the awaited substitute, or there is none.
void Reader::settleUnspelled(const RichTextToken &next)
{
    const char32_t character = *std::exchange(Unspelled, {});
    switch (next.Kind) {
    case RichTextToken::Stretch:
    case RichTextToken::Byte:
    case RichTextToken::Symbol:
        return;
    case RichTextToken::Word:
        if (keyword(next.Text).Act == &Reader::character)
            return;
        break;
    default:
        break;
    }
    takeUnicode(character);
    ToSkip = Now.Substitutes;
}

void Reader::documentPageNumber(int, Number number)
{
    if (number.value_or(0) > 0)
        Page = *number;
}

void Reader::colorPart(int shift, Number number)
{
    ColorEntry |= std::clamp(number.value_or(0), 0, 255) << shift;
}

void Reader::fontTable(int, Number)
{
    Now.Into = Destination::FontTable;
    Fonts.beginTable();
}

void Reader::colorTable(int, Number)
{
    Now.Into = Destination::ColorTable;
    Colors.clear();
    ColorEntry = 0;
}

} // namespace

std::optional<RichText> readRichText(QByteArrayView source)
{
    return Reader(source).read();
}
