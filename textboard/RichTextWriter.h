// Writes the rich-text buffer down for word processors. Values in, bytes out.
#pragma once

#include "textboard/RichText.h"

/// A document in the Rich Text Format (1.9.1), in ASCII alone. Every format is written in full
/// where it begins, and every paragraph is closed by `\par`, the last one too, as word processors
/// do: one `\par` more than there are line ends. Codes outside ASCII become `\'hh` in the code
/// page, which is named. readRichText gives back the same text, fonts, sizes, colours, styles and
/// alignments.
QByteArray writeRichText(const RichText &text);
