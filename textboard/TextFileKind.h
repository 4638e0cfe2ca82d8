// Which files hold a text for the board. Knows their names only.
#pragma once

#include "core/CheckDFFFunctions.h"
#include "textboard/TextBoardRTF.h"

#include <optional>

/// The kind that a path's ending names, in capitals or not; nothing for any other ending.
inline std::optional<TextBoardRTF::FileKind> TextFileKind(const QString &path)
{
    const QString ending = EndingOf(path);
    if (ending == "ZUF")
        return TextBoardRTF::FileKind::RichText;
    if (ending == "TXT")
        return TextBoardRTF::FileKind::PlainText;
    return std::nullopt;
}
