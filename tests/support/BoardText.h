// Texts that fill the board up to its limit.
#pragma once

#include <QString>

/// Characters that the board holds; a line end counts two.
constexpr int BoardLimit = 61440;

/// So many characters, at least one, in lines of 78 letters and CR LF with letters at the end.
inline QString linesOfText(int count)
{
    const int whole = (count - 1) / 80;
    return QString(QString(78, u'x') + QLatin1String("\r\n")).repeated(whole) +
           QString(count - whole * 80, u'x');
}
