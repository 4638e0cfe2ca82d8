// Keeps a text box to the characters of the code page, however they come in.
#pragma once

#include "platform/CodePage.h"

#include <QValidator>

class CodePageValidator : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString &input, int &position) const override
    {
        position = static_cast<int>(CodePage::fit(QStringView(input).left(position)).size());
        input = CodePage::fit(input);
        return Acceptable;
    }
};
