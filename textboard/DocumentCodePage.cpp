// Which names the toolkit's decoders have for the pages, as a table: a document may name any
// number, and asking for the decoder of each would take for ever.
#include "textboard/DocumentCodePage.h"

#include "platform/CodePage.h"

#include <algorithm>
#include <iterator>

namespace {

struct CharsetRow
{
    int Charset, Page;
};

constexpr CharsetRow Charsets[] = {{0, 1252},   {77, 10000}, {78, 10001}, {128, 932},  {129, 949},
                                   {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
                                   {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251},
                                   {222, 874},  {238, 1250}, {254, 437},  {255, 850}};

struct PageRow
{
    int Page;
    const char *Name;
};

constexpr PageRow Pages[] = {
    {437, "IBM437"},        {737, "IBM737"},        {775, "IBM775"},
    {850, "IBM850"},        {852, "IBM852"},        {855, "IBM855"},
    {857, "IBM857"},        {858, "IBM858"},        {860, "IBM860"},
    {861, "IBM861"},        {862, "IBM862"},        {863, "IBM863"},
    {864, "IBM864"},        {865, "IBM865"},        {866, "IBM866"},
    {869, "IBM869"},        {874, "windows-874"},   {932, "windows-932"},
    {936, "windows-936"},   {949, "windows-949"},   {950, "windows-950"},
    {1250, "windows-1250"}, {1251, "windows-1251"}, {1252, "windows-1252"},
    {1253, "windows-1253"}, {1254, "windows-1254"}, {1255, "windows-1255"},
    {1256, "windows-1256"}, {1257, "windows-1257"}, {1258, "windows-1258"},
    {10000, "macintosh"},   {10001, "Shift_JIS"},   {10007, "x-mac-cyrillic"},
    {65001, "UTF-8"}};

} // namespace

int DocumentCodePage::ofCharset(int charset)
{
    const auto row = std::ranges::find(Charsets, charset, &CharsetRow::Charset);
    return row == std::end(Charsets) ? 0 : row->Page;
}

int DocumentCodePage::charsetOf(int page)
{
    const auto row = std::ranges::find(Charsets, page, &CharsetRow::Page);
    Q_ASSERT(row != std::end(Charsets));
    return row->Charset;
}

bool DocumentCodePage::isLeadByte(int page, quint8 byte)
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

QString DocumentCodePage::Decoder::decode(int page, QByteArrayView bytes)
{
    const auto row = std::ranges::find(Pages, page, &PageRow::Page);
    if (row == std::end(Pages) || page == CodePage::number())
        return CodePage::fromBytes(bytes);
    QStringDecoder &decoder = Decoders.try_emplace(page, row->Name).first->second;
    if (!decoder.isValid()) // a toolkit that was built without them
        return CodePage::fromBytes(bytes);
    decoder.resetState();
    return decoder.decode(bytes);
}
