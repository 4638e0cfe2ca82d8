// Entering fonts within bounds, and finding the one that stands for a number.
#include "textboard/RichTextFonts.h"

#include "textboard/DocumentCodePage.h"
#include "textboard/RichTextReader.h"

namespace {

constexpr qsizetype MaxFonts = 1 << 16;
constexpr qsizetype MaxName = 1024;
constexpr int SymbolCharset = 2;

} // namespace

void RichTextFonts::setDefault(quint32 number)
{
    DefaultNumber = number;
    Last = nullptr;
}

void RichTextFonts::beginTable()
{
    EntryNumber.reset();
    Entry = {};
}

void RichTextFonts::beginFont(quint32 number)
{
    EntryNumber = number;
    Entry = {};
}

void RichTextFonts::setCharset(int charset)
{
    Entry.Symbol = charset == SymbolCharset;
    Entry.Page = DocumentCodePage::ofCharset(charset);
}

void RichTextFonts::addToName(const QString &piece)
{
    if (Entry.Name.size() + piece.size() <= MaxName)
        Entry.Name += piece;
}

void RichTextFonts::finishFont()
{
    if (EntryNumber && !Entry.Name.isEmpty() &&
        (Fonts.size() < MaxFonts || Fonts.contains(*EntryNumber))) {
        FirstNumber = FirstNumber.value_or(*EntryNumber);
        Fonts.insert(*EntryNumber, Entry);
        Last = nullptr;
    }
    Entry.Name.clear();
}

RichTextFonts::Font &RichTextFonts::font(quint32 number)
{
    if (Last && LastNumber == number)
        return *Last;
    auto found = Fonts.find(number);
    if (found == Fonts.end() && DefaultNumber)
        found = Fonts.find(*DefaultNumber);
    if (found == Fonts.end() && FirstNumber)
        found = Fonts.find(*FirstNumber);
    if (NoFont.Name.isEmpty())
        NoFont.Name = DefaultFontName.toString();
    Last = found == Fonts.end() ? &NoFont : &*found;
    LastNumber = number;
    return *Last;
}
