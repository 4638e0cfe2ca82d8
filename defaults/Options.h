// The modal window in which the defaults of the program are set. It reads them from the settings
// when it opens and writes them there; what the program shows now stays as it is. Every change
// shows at once in the samples of the window.
#pragma once

#include "defaults/OptionValues.h"
#include "platform/controls/FormDialog.h"

class CharCells;
class ElidedLabel;
class FMColorPalette;
class QAbstractButton;
class QAbstractItemModel;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;
class QTabWidget;
class TextBoard;

class Options : public FormDialog
{
    Q_OBJECT

public:
    /// The font dialog offers these fonts, one row each; they and the palette outlive the window.
    /// Throws ConversionError, with nothing written, where a setting can't be converted.
    Options(QAbstractItemModel *fonts, FMColorPalette &palette, QWidget *parent);

    // ---- defaults/Options.cpp: reading, writing, what is taken from other dialogs

    void ReadOptions();
    /// False if nothing could be written.
    bool WriteOptions() const;
    void ShowOptionTips();
    void ChgFont_Click();
    void ChgTBFColor_Click();
    void ChgFMFColor_Click();
    void ChgFMBColor_Click();
    void ocmdInitMap_Click();
    void cmdOK_Click();
    /// Enables the boxes of those styles that the font can be shown without.
    void TestFontStyles(const QString &name);
    /// Takes the colour over as the default if it is one of the board's; else nothing changes.
    void FindTextColor(ColorValue color);

    // ---- defaults/OptionsForm.cpp: the controls

    QTabWidget *SSTabOption = nullptr;
    ElidedLabel *OCurrentFont = nullptr;
    QPushButton *ChgFont = nullptr;
    NumberSlider *OFontSizeSlider = nullptr; ///< with OFontSizeNumber and OFontSizeEdit
    TextBoard *TestFont = nullptr;           ///< hidden: tells what styles a font has of itself
    TextBoard *OTBSample = nullptr;
    QLabel *OTBFColor = nullptr;
    ElidedLabel *OTBFColorName = nullptr;
    QLabel *OFMapFColor = nullptr, *OFMapBColor = nullptr;
    QLabel *OFMFPalName = nullptr, *OFMBPalName = nullptr;
    ElidedLabel *OFMFColorName = nullptr, *OFMBColorName = nullptr;
    ElidedLabel *olblInitMap = nullptr;
    QPushButton *ocmdInitMap = nullptr;
    NumberSlider *OZoomSizeSlider = nullptr; ///< with OZoomSizeNumber and OZoomSizeEdit
    CharCells *OTextZoom = nullptr;
    QLineEdit *oSampleText = nullptr;
    CharCells *OCharButton = nullptr; ///< the strip
    QWidget *CharButtonBox = nullptr; ///< round the zoomed letter, if the strip shows that
    QScrollBar *OCharButtonScroll = nullptr;
    QLabel *OCharButtonStart = nullptr, *OCharButtonEnd = nullptr;
    QPushButton *cmdOK = nullptr;

    // ---- defaults/OptionsSamples.cpp: what the samples show

    void OCharButtonScroll_Change();
    void OCharButton_Click(int Index);
    void OCharButton_MouseMove(int Index);

protected:
    bool event(QEvent *event) override;
    /// Ctrl+Tab turns the pages wherever the focus is.
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct MapColor;

    // OptionsForm.cpp
    void createControls();
    void createFontControls();
    void createTextBoardPage();
    void createFontMapPage();
    void createViewsPage();
    void createToolsPage();
    void createStrip();
    void connectControls();
    void setTabOrders();
    QLabel *makeSwatch(const char *name);
    QPushButton *makeButton(const char *name, const char *caption, void (Options::*click)());
    NumberSlider *makeSlider(const ControlTable::NumberSliderNames &names, int most,
                             int OptionValues::*value);
    // OptionsBoxes.cpp
    void createBoxes();
    QAbstractButton *button(const char *name) const;
    void showValues();
    // OptionsSamples.cpp
    void showSamples();
    void showTextSample();
    void showMapSamples();
    void showStrip();
    void placeBox();
    void zoomCode(int code);
    void dropBlankSample();
    bool sampleTextEvent(QEvent *event);
    // Options.cpp
    void takeTextColor(ColorValue color);
    void takeMapPath(const QString &path);
    void changeMapColor(const MapColor &which);

    QAbstractItemModel *Fonts;
    FMColorPalette &Palette;
    OptionValues Values; ///< what is stored when Set is pressed
    OptionSnapshot OptSnapshot;
    ColorValue TextColor = 0; ///< that the sample shows; may be none of the board's
    QString MapFolder;        ///< in which a start-up map is looked for
    int HighlightedCell = 0;
};
