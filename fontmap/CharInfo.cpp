// Code texts and keystroke texts of the default map and of custom ones.
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

namespace {

CharTexts charTexts(int code, const QString &keystroke)
{
    return {QString::number(code), QString::number(code, 16).toUpper(), QString::number(code, 8),
            Bin(code), keystroke};
}

QString altKeystroke(int code)
{
    return QStringLiteral("Alt+0") + QString::number(code);
}

constexpr QLatin1StringView SpaceKeystroke("Space Bar");
constexpr int LastTyped = 126; // the last code that a key types

} // namespace

CharTexts DefaultCharTexts(int code)
{
    if (code == FirstCode)
        return charTexts(code, SpaceKeystroke);
    return charTexts(code, code <= LastTyped ? CharacterOf(code) : altKeystroke(code));
}

CharTexts CustomCharTexts(const QString &caption, int &control)
{
    if (caption.isEmpty())
        return {};
    const int code = CodePage::toCode(caption.front().unicode()).value();
    if (code == FirstCode)
        return charTexts(code, SpaceKeystroke);
    if (code <= LastTyped)
        return charTexts(code, caption);
    if (code <= LastTyped + 2)
        return charTexts(code, QStringLiteral("Ctrl+") + QString::number(control++));
    return charTexts(code, altKeystroke(code));
}

QString SpokenCell(const QStringList &texts)
{
    QStringList spoken;
    for (const QString &text : texts)
        if (!text.trimmed().isEmpty())
            spoken += text;
    return spoken.isEmpty() ? "Empty" : spoken.join(", ");
}
