// The question as a message.
#include "fonttools/TakeFont.h"

#include "core/GlobalDeclarations.h"
#include "core/Message.h"

bool AskToSetFont(const QString &FontName)
{
    ZndvMsg("\r\rDo you want to select the font\r" + FontName.toUpper() +
                "\ras the current font for Zendova?\r\r• Press Yes to select the font.\r"
                "• Press No to cancel operation.",
            "YN", "Set Zendova Font", false, 1);
    return MsgResult;
}
