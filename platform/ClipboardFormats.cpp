// The formats by the names under which the programs of this desktop look for them.
#include "platform/ClipboardFormats.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

namespace {

/// The registered name, and the one under which some word processors look for the same.
constexpr const char *RichTextFormats[] = {"text/rtf", "application/rtf"};

} // namespace

bool ClipboardFormats::hasText()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasFormat("text/plain");
}

std::optional<QString> ClipboardFormats::text()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    if (!data)
        return std::nullopt;
    // Each question may have to wait for the owner, and the toolkit's own text() asks several: here
    // it is one for the formats and, where that was answered, one for the text.
    const QStringList offered = data->formats();
    for (const char *format : {"text/plain;charset=utf-8", "text/plain"})
        if (offered.contains(QLatin1StringView(format)))
            return QString::fromUtf8(data->data(QLatin1StringView(format)));
    return std::nullopt;
}

void ClipboardFormats::setText(const QString &text, const QByteArray &richText)
{
    auto data = std::make_unique<QMimeData>();
    data->setText(QString(text).replace("\r\n", "\n"));
    if (!richText.isEmpty())
        for (const char *format : RichTextFormats)
            data->setData(format, richText);
    QGuiApplication::clipboard()->setMimeData(data.release());
}
