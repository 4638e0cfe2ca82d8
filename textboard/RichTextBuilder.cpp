// Line ends, cells and accents; the end of the text, whose format closes the runs.
#include "textboard/RichTextBuilder.h"

#include "platform/CodePage.h"

namespace {

constexpr std::size_t MaxRuns = 1 << 20;

} // namespace

void RichTextBuilder::append(const char *codes, qsizetype length, const RichTextLook &look)
{
    Text.Codes.append(codes, length);
    Text.Formats.append(length, look.Format);
    LastAlignment = look.Alignment;
}

void RichTextBuilder::append(QString characters, const RichTextLook &look)
{
    if (characters.isEmpty())
        return;
    if (characters.front().isMark() && !isLineEmpty() && !Text.Codes.endsWith('\t')) {
        characters.prepend(CodePage::toUnicode(static_cast<quint8>(Text.Codes.back())));
        dropLast();
    }
    const QString fitting = CodePage::fit(characters);
    constexpr auto composed = QString::NormalizationForm_C;
    Text.IsFitted |=
        fitting != characters && fitting.normalized(composed) != characters.normalized(composed);
    const QByteArray codes = CodePage::toBytes(fitting);
    append(codes.constData(), codes.size(), look);
}

void RichTextBuilder::endLine(const RichTextLook &look)
{
    Text.Formats.append(2, isLineEmpty() ? look.Format : Text.Formats.last());
    Text.Codes += "\r\n";
    Text.Alignments.append(Text.Codes.size() - LineStart, look.Alignment);
    LineStart = Text.Codes.size();
}

void RichTextBuilder::closeParagraph(const RichTextLook &look)
{
    endLine(look);
    ClosedAt = Text.Codes.size();
}

void RichTextBuilder::endCell(const RichTextLook &look)
{
    append("\t", 1, look);
    CellAt = Text.Codes.size();
}

void RichTextBuilder::endRow(const RichTextLook &look)
{
    if (CellAt == Text.Codes.size())
        dropLast();
    endLine(look);
}

bool RichTextBuilder::hasTooManyRuns() const
{
    return Text.Formats.count() > MaxRuns || Text.Alignments.count() > MaxRuns;
}

RichText RichTextBuilder::finish(const RichTextLook &look)
{
    if (ClosedAt == Text.Codes.size()) {
        // The places of the line end become that of the text's end.
        Text.Codes.chop(2);
        Text.Formats.chop();
        Text.Alignments.chop();
    } else {
        Text.Formats.append(1, look.Format);
        Text.Alignments.append(Text.Codes.size() - LineStart + 1,
                               isLineEmpty() ? look.Alignment : LastAlignment);
    }
    Text.Codes.squeeze();
    return std::move(Text);
}

void RichTextBuilder::dropLast()
{
    Text.Codes.chop(1);
    Text.Formats.chop();
}
