// What the program says, by the names that the tests give it: the title behind the program's name,
// and the text, whole where it has carriage returns, otherwise words of it.
#pragma once

struct ExpectedMessage
{
    const char *Title;
    const char *Text; ///< %1 is what the message is about
};

namespace Says {

using Said = const ExpectedMessage;

constexpr Said ScreenTooSmall{" Resource Initilalization Error", "needs at least 800x600"};
constexpr Said FirstRun{" Init Information", "running Zendova for the first time?"};
constexpr Said Repair{" Registry Initialization Error", "seem to be incorrect."};
constexpr Said MapTooLarge{" FontMap Size Error", "cannot be accommodated"};
constexpr Said FontGone{" Font Initialization Error", "last used by Zendova is unavailable."};
constexpr Said StartupFile{" Startup File Load Error", "%1"};
constexpr Said Exit{" Exit Warning", "\r\r\r\rDiscard text on the TextBoard and Exit?"};

constexpr Said BoardIsFull{" Paste Error", "filled to it's capacity."};
constexpr Said NoMemory{" Paste Error", "because of memory constraints."};
constexpr Said PasteTooLong{" TextBoard Limit Warning", "trying to paste exceeds the maximum"};
constexpr Said Copied{" Copy Successful", "copied to Windows Clipboard."};
constexpr Said WasCut{" Cut Successful", "cut to Windows Clipboard."};
constexpr Said UnloadChanged{" TextBoard Save Warning", "lose these changes by unloading"};
constexpr Said Unload{" TextBoard Unload Warning", "You will lose this text by unloading"};
constexpr Said NotFound{" Find Error", "\r\r\r%1\r\rWord not found upto end of TextBoard."};
constexpr Said NotInSelection{" Find Error", "\r\r\r%1\r\rWord not found within selection."};

constexpr Said LoadError{" File Load Error", "%1"};
constexpr Said TextWasChanged{" TextBoard Save Warning", "lose these changes by loading"};
constexpr Said TextIsThere{" TextBoard Overwrite Warning", "You will lose this text by loading"};
constexpr Said AlreadyLoaded{" File Load Error", "%1 Text from this file is already"};
constexpr Said LoadedButChanged{" File Load Error",
                                "%1 Text from this file was loaded but has since"};
constexpr Said WrongType{" File Type Error", "• *.ZUF (Zendova Uniform Format files) • *.TXT"};
constexpr Said FileTooLong{" TextBoard Limit Warning", "trying to load exceeds the maximum"};
constexpr Said NotReadable{" File Load Error", "seem to be a valid .ZUF or .TXT file."};
constexpr Said NotShown{" File Load Error", "Try closing Zendova and reloading the file again."};
constexpr Said FontMissing{" File Font Error", "Font: %1 This font does not exist"};
constexpr Said ForeignColor{" File Load Error", "does not match the 16 predefined Zendova"};
constexpr Said SizeTooSmall{" File Load Error", "smaller than the minimum TextBoard font Size"};
constexpr Said SizeTooLarge{" File Load Error", "exceeds the maximum TextBoard font Size of 36"};
constexpr Said UnknownError{" Unknown Error", "write to feedback@zendova.example"};
constexpr Said TextReplaced{" File Save Warning", "some were replaced or left out"};
constexpr Said SettingsReplaced{" File Save Warning", "will overwrite it's original font"};
constexpr Said NotSaved{" File Save Error", "It is still on the TextBoard. %1"};

} // namespace Says
