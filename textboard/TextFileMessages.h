// What loading and saving the board's text says to the user. "%1" stands for what the case at hand
// puts in: a path, the name of a font, an address.
#pragma once

/// The arguments of a call of ZndvMsg, the title without the product's name.
struct FileMessage
{
    const char *Title;
    const char *Buttons;
    int DefaultButton;
    const char *Text;
    bool ShowCheck = false;
};

namespace FileMessages {

constexpr FileMessage TextWasChanged = {" TextBoard Save Warning", "YN", 1,
                                        "\r\rText on the TextBoard has been changed."
                                        "\rYou will lose these changes by loading another file now."
                                        "\r\rContinue Loading?"
                                        "\r• Press Yes to continue loading text."
                                        "\r• Press No to cancel operation."};
constexpr FileMessage TextIsThere = {" TextBoard Overwrite Warning", "YN", 1,
                                     "\r\rYou have text on the TextBoard."
                                     "\rYou will lose this text by loading another file now."
                                     "\r\rContinue Loading?"
                                     "\r• Press Yes to continue loading text."
                                     "\r• Press No to cancel operation.",
                                     true};
constexpr FileMessage WrongType = {" File Type Error", "OK", 1,
                                   "\r\rZendova allows loading from only two types of files."
                                   "\rThese are:"
                                   "\r• *.ZUF (Zendova Uniform Format files)"
                                   "\r• *.TXT (ASCII Text files)"
                                   "\rPlease select only the above file types for loading."};
constexpr FileMessage FontMissing = {" File Font Error", "YN", 2,
                                     "\rFont: %1"
                                     "\rThis font does not exist on your system."
                                     "\rIt is used by the file you are trying to load."
                                     "\r\rZendova will load this file with current font setting."
                                     "\rLoad File?"};
constexpr FileMessage TooLong = {" TextBoard Limit Warning", "YN", 1,
                                 "\rSize of the file you are trying to load exceeds the"
                                 "\rmaximum limit (61,440 characters) of the TextBoard."
                                 "\rA partial load upto the limit of the TextBoard is possible."
                                 "\r\rContinue Loading?"
                                 "\r• Press Yes to load partial file."
                                 "\r• Press No to cancel load."};
constexpr FileMessage LoadedButChanged = {" File Load Error", "YN", 2,
                                          "\r%1"
                                          "\r\rText from this file was loaded"
                                          "\rbut has since been changed."
                                          "\r\rDo you want to reload the file?\r\r"};
constexpr FileMessage AlreadyLoaded = {" File Load Error", "OK", 1,
                                       "\r\r\r%1"
                                       "\r\rText from this file is already loaded."};
constexpr FileMessage NotReadable = {" File Load Error", "OK", 1,
                                     "\r\rThe file you selected could not be loaded successfully"
                                     "\rIt does not seem to be a valid .ZUF or .TXT file."};
constexpr FileMessage NotShown = {" File Load Error", "OK", 1,
                                  "\rThe file you selected could not be loaded successfully."
                                  "\r\rThis may happen sometimes if the size of the file"
                                  "\rbeing opened is large and the text volume exceeds"
                                  "\rthe ZRT managed 64KB threshold for TextBoard memory."
                                  "\r\rTry closing Zendova and reloading the file again."};
constexpr FileMessage ForeignColor = {" File Load Error", "OK", 1,
                                      "\r\rFont color of the file you are trying to load does"
                                      "\rnot match the 16 predefined Zendova font colors."
                                      "\r\rZendova will load this file with"
                                      "\rthe default font color of Black"};
constexpr FileMessage SizeTooSmall = {" File Load Error", "OK", 1,
                                      "\r\rFont size of the file you are trying to load is"
                                      "\rsmaller than the minimum TextBoard font Size of 8."
                                      "\r\rZendova will load this file"
                                      "\rwith a font size of 8."};
constexpr FileMessage SizeTooLarge = {" File Load Error", "OK", 1,
                                      "\r\rFont size of the file you are trying to load"
                                      "\rexceeds the maximum TextBoard font Size of 36."
                                      "\r\rZendova will load this file"
                                      "\rwith a font size of 36."};
constexpr FileMessage UnknownError = {" Unknown Error", "OK", 1,
                                      "\r\rThe file you selected could not be loaded"
                                      "\rsuccessfully due to unknown reasons."
                                      "\r\rPlease write to %1"
                                      "\rwith all details of this problem."};
constexpr FileMessage SettingsReplaced = {" File Save Warning", "YN", 2,
                                          "\rThe font settings of this file"
                                          "\rwas changed while loading it."
                                          "\r\rSaving this file will overwrite"
                                          "\rit's original font settings."
                                          "\r\rSave File?"};
constexpr FileMessage TextReplaced = {" File Save Warning", "YN", 2,
                                      "\rNot all characters of this file could be loaded:"
                                      "\rsome were replaced or left out."
                                      "\r\rSaving this file will overwrite"
                                      "\rits original text."
                                      "\r\rSave File?"};
constexpr FileMessage NotSaved = {" File Save Error", "OK", 1,
                                  "\rThe text could not be saved."
                                  "\rIt is still on the TextBoard."
                                  "\r\r%1"};

} // namespace FileMessages
