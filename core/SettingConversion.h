// What a setting becomes at its reader: values are kept as strings or numbers, and whoever reads
// one asks here for the type it needs. Knows neither the store nor a window.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>
#include <exception>
#include <variant>

/// A value as it was read: nothing, a string or a 32-bit number.
using SettingValue = std::variant<std::monostate, QString, qint32>;

/// A string that is no number and no truth word where one is needed. Nobody on the way catches it:
/// main() reports it and ends the program with a status that is not 0.
class ConversionError : public std::exception
{
public:
    ConversionError(QStringView key, QStringView name, QStringView text);

    const QString key;
    const QString name;
    const QString text;

    /// One line in English with key, name and text, in UTF-8. A long text is shortened in the
    /// middle, and what is no printable character in it is a blank.
    const char *what() const noexcept override { return Reason.constData(); }

private:
    QByteArray Reason;
};

/// Nothing gives 0. A string is decimal digits with or without sign, decimals and blanks round
/// about, rounded to the nearest whole number and halves to the even one, or "True" (-1) or "False"
/// (0) in any case. Throws ConversionError for other text and beyond 32 bits; key and name go
/// there.
qint32 toNumber(const SettingValue &value, QStringView key, QStringView name);

/// Nothing gives false; a number, or digits, is true where it is not zero; "True" and "False" in
/// any case. Throws ConversionError for other text.
bool toTruth(const SettingValue &value, QStringView key, QStringView name);

/// Nothing gives "", a number its decimal digits with a minus sign below zero.
QString toText(const SettingValue &value);
