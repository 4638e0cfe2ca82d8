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

QString ClipboardFormats::text()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasFormat("text/plain") ? data->text() : QString();
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
