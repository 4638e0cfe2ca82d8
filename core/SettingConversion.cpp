// The classic conversions between strings, numbers and truth values. No locale takes part: settings
// written under one language are read under another.
#include "core/SettingConversion.h"

#include <QRegularExpression>
#include <cmath>
#include <limits>
#include <optional>

namespace {

std::optional<double> parseNumber(QStringView text)
{
    static const QRegularExpression decimal(
        QStringLiteral(R"(\A[ \t]*([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+))[ \t]*\z)"));
    const auto match = decimal.match(text.toString());
    if (!match.hasMatch())
        return std::nullopt;
    return match.capturedView(1).toDouble();
}

std::optional<bool> parseTruthWord(QStringView text)
{
    const QStringView word = text.trimmed();
    if (word.compare(u"True", Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(u"False", Qt::CaseInsensitive) == 0)
        return false;
    return std::nullopt;
}

/// Fit to be shown in a line: the two ends of a long text, blanks for what can't be printed.
QString inShort(QStringView text)
{
    constexpr qsizetype Most = 60;
    constexpr qsizetype End = 20;
    QString shown;
    if (text.size() > Most) {
        QStringView first = text.first(Most - End - 1);
        QStringView last = text.last(End);
        // No half of a character outside the first 65,536.
        if (first.back().isHighSurrogate())
            first.chop(1);
        if (last.front().isLowSurrogate())
            last = last.sliced(1);
        shown = first.toString() + QChar(0x2026) + last.toString();
    } else {
        shown = text.toString();
    }
    for (QChar &c : shown)
        if (c.isSpace() || (!c.isPrint() && !c.isSurrogate()))
            c = u' ';
    return shown;
}

} // namespace

ConversionError::ConversionError(QStringView itsKey, QStringView itsName, QStringView itsText)
    : key(itsKey.toString())
    , name(itsName.toString())
    , text(itsText.toString())
    , Reason(QStringLiteral("The setting %1\\%2 cannot be converted: \"%3\"")
                 .arg(key, name, inShort(text))
                 .toUtf8())
{
}

qint32 toNumber(const SettingValue &value, QStringView key, QStringView name)
{
    if (const auto *number = std::get_if<qint32>(&value))
        return *number;
    const auto *text = std::get_if<QString>(&value);
    if (!text)
        return 0;
    if (const auto truth = parseTruthWord(*text))
        return *truth ? -1 : 0;
    if (const auto number = parseNumber(*text)) {
        // The default rounding mode of IEEE 754: halves go to the even neighbour.
        const double rounded = std::nearbyint(*number);
        if (rounded >= std::numeric_limits<qint32>::min() &&
            rounded <= std::numeric_limits<qint32>::max())
            return static_cast<qint32>(rounded);
    }
    throw ConversionError(key, name, *text);
}

bool toTruth(const SettingValue &value, QStringView key, QStringView name)
{
    if (const auto *number = std::get_if<qint32>(&value))
        return *number != 0;
    const auto *text = std::get_if<QString>(&value);
    if (!text)
        return false;
    if (const auto truth = parseTruthWord(*text))
        return *truth;
    if (const auto number = parseNumber(*text))
        return *number != 0;
    throw ConversionError(key, name, *text);
}

QString toText(const SettingValue &value)
{
    if (const auto *number = std::get_if<qint32>(&value))
        return QString::number(*number);
    const auto *text = std::get_if<QString>(&value);
    return text ? *text : QString();
}
