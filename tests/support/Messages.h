// What the program says, by the names that the tests give it: the title behind the program's name,
// and the text, whole where it has carriage returns, otherwise words of it.
#pragma once

struct ExpectedMessage
{
    const char *Title;
    const char *Text; ///< %1 is what the message is about
};

namespace Says {

// ---- Start and end of a run

constexpr ExpectedMessage ScreenTooSmall{" Resource Initilalization Error",
                                         "needs at least 800x600 resolution with Small Fonts"};
constexpr ExpectedMessage FirstRun{" Init Information",
                                   "\r\r\r\rAre you running Zendova for the first time?"};
constexpr ExpectedMessage Repair{" Registry Initialization Error",
                                 "seem to be incorrect. Continue Loading?"};
constexpr ExpectedMessage MapTooLarge{" FontMap Size Error",
                                      "cannot be accommodated in the current screen size."};
constexpr ExpectedMessage FontGone{" Font Initialization Error",
                                   "The font last used by Zendova is unavailable."};
constexpr ExpectedMessage StartupFile{" Startup File Load Error", "%1"};
constexpr ExpectedMessage Exit{" Exit Warning", "\r\r\r\rDiscard text on the TextBoard and Exit?"};

// ---- Clipboard, find and unloading

constexpr ExpectedMessage BoardIsFull{" Paste Error", "filled to it's capacity."};
constexpr ExpectedMessage NoMemory{" Paste Error", "because of memory constraints."};
constexpr ExpectedMessage PasteTooLong{" TextBoard Limit Warning",
                                       "the text string you are trying to paste exceeds the "
                                       "maximum limit (61,440 characters)"};
constexpr ExpectedMessage Copied{" Copy Successful", "copied to Windows Clipboard."};
constexpr ExpectedMessage WasCut{" Cut Successful", "cut to Windows Clipboard."};
constexpr ExpectedMessage UnloadChanged{" TextBoard Save Warning",
                                        "has been changed. You will lose these changes by "
                                        "unloading the TextBoard now. Continue Unloading?"};
constexpr ExpectedMessage Unload{" TextBoard Unload Warning",
                                 "You have text on the TextBoard. You will lose this text by "
                                 "unloading the TextBoard now. Continue Unloading?"};
constexpr ExpectedMessage NotFound{" Find Error",
                                   "\r\r\r%1\r\rWord not found upto end of TextBoard."};
constexpr ExpectedMessage NotInSelection{" Find Error",
                                         "\r\r\r%1\r\rWord not found within selection."};

// ---- Files

constexpr ExpectedMessage LoadError{" File Load Error", "%1"};
constexpr ExpectedMessage TextWasChanged{
    " TextBoard Save Warning", "has been changed. You will lose these changes by loading"};
constexpr ExpectedMessage TextIsThere{
    " TextBoard Overwrite Warning",
    "You have text on the TextBoard. You will lose this text by loading"};
constexpr ExpectedMessage AlreadyLoaded{" File Load Error",
                                        "\r\r\r%1\r\rText from this file is already loaded."};
constexpr ExpectedMessage LoadedButChanged{
    " File Load Error", "%1 Text from this file was loaded but has since been changed. Do "
                        "you want to reload the file?"};
constexpr ExpectedMessage WrongType{" File Type Error",
                                    "These are: • *.ZUF (Zendova Uniform Format files) • "
                                    "*.TXT (ASCII Text files)"};
constexpr ExpectedMessage FileTooLong{
    " TextBoard Limit Warning", "Size of the file you are trying to load exceeds the maximum limit "
                                "(61,440 characters)"};
constexpr ExpectedMessage NotReadable{" File Load Error",
                                      "It does not seem to be a valid .ZUF or .TXT file."};
constexpr ExpectedMessage NotShown{" File Load Error",
                                   "Try closing Zendova and reloading the file again."};
constexpr ExpectedMessage FontMissing{" File Font Error",
                                      "Font: %1 This font does not exist on your system."};
constexpr ExpectedMessage ForeignColor{" File Load Error",
                                       "does not match the 16 predefined Zendova font colors."};
constexpr ExpectedMessage SizeTooSmall{" File Load Error",
                                       "smaller than the minimum TextBoard font Size of 8."};
constexpr ExpectedMessage SizeTooLarge{" File Load Error",
                                       "exceeds the maximum TextBoard font Size of 36."};
constexpr ExpectedMessage UnknownError{
    " Unknown Error", "write to feedback@zendova.example with all details of this problem."};
constexpr ExpectedMessage SettingsReplaced{
    " File Save Warning", "will overwrite it's original font settings. Save File?"};
constexpr ExpectedMessage NotSaved{" File Save Error", "It is still on the TextBoard. %1"};

} // namespace Says
