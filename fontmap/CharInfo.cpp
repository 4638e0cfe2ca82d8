// Code texts and keystroke texts of the default map.
#include "fontmap/CharInfo.h"

#include "platform/CodePage.h"

#include <cmath>

QString Bin(qint32 n)
{
    // The weights start at 2^31 - 1. Its half, rounded with ties to even, is 2^30, and exact powers
    // of two follow; cut instead of rounded they would stay one short all the way down.
    QString digits;
    bool started = false;
    double exact = 2147483647.0;
    for (qint32 weight = 2147483647; weight >= 1;
         exact = weight / 2.0, weight = static_cast<qint32>(std::nearbyint(exact))) {
        if (n >= weight) {
            n -= weight;
            digits += u'1';
            started = true;
        } else if (started) {
            digits += u'0';
        }
    }
    return digits;
}

QString CharacterOf(int code)
{
    return QString(CodePage::toUnicode(static_cast<quint8>(code)));
}

CharTexts DefaultCharTexts(int code)
{
    const QString decimal = QString::number(code);
    QString keystroke = QStringLiteral("Alt+0") + decimal;
    if (code == FirstCode)
        keystroke = QStringLiteral("Space Bar");
    else if (code <= 126)
        keystroke = CharacterOf(code);
    return {decimal, QString::number(code, 16).toUpper(), QString::number(code, 8), Bin(code),
            keystroke};
}
