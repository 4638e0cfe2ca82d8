// The modal window in which a colour of the FontMap is chosen from three palettes, and in which the
// custom ones are recoloured and named. It takes the present colour from the public Pick variables
// and gives the choice back in them. One instance lives as long as the run: it reads the custom
// colours when it is made, and makes its controls when it is first shown.
#pragma once

#include "defaults/PaletteTables.h"
#include "fontmap/ColorRecord.h"
#include "platform/controls/FormDialog.h"

class ColorBlocks;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

/// What the Pick variables tell.
ColorRecord PickedColor();

class FMColorPalette : public FormDialog
{
    Q_OBJECT

public:
    /// Throws ConversionError where a custom colour of the settings can't be converted.
    explicit FMColorPalette(QWidget *parent);

    /// Shows the window above its owner, under this caption, and returns when it is closed. The
    /// caller has set PickColorIndex, PickPaletteRef and PickColorValue; after Ok they and
    /// PickColorName tell the choice, otherwise they are as they were.
    void PickColor(const QString &caption, const QWidget &owner);
    /// Starts it from a colour of the FontMap and its value of now, and tells whether another block
    /// was chosen, which is in PickedColor then.
    bool PickAnother(const QString &caption, const QWidget &owner, const ColorRecord &record,
                     ColorValue live);
    /// Writes the custom colours to the settings; the close box does so too, Ok and Cancel do not.
    void SaveCustomColors() const;

    void SSTabColor_Click();
    void ColorButton_Click();
    void TextButton_Click(); ///< pressed or released
    void ResetButton_Click();
    void Button1_Click();
    void Button2_Click();
    void reject() override; ///< Esc presses Button2

    // Null until the window is first shown.
    QTabWidget *SSTabColor = nullptr;
    ColorBlocks *PColorContainer = nullptr;
    ColorBlocks *SColorContainer = nullptr;
    ColorBlocks *CColorContainer = nullptr;
    QLabel *SCLabel = nullptr;
    QLabel *CCLabel = nullptr;
    QLineEdit *CCText = nullptr; ///< stands over CCLabel while a label is edited
    QPushButton *ColorButton = nullptr;
    QPushButton *TextButton = nullptr;
    QPushButton *ResetButton = nullptr;
    QLabel *CurrentColorBlock = nullptr;
    QLabel *CurrentColorLabel = nullptr;
    QPushButton *Button1 = nullptr;
    QPushButton *Button2 = nullptr;

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override; ///< of CCText
    void closeEvent(QCloseEvent *event) override;

private:
    void createControls();
    ColorBlocks *makeBlocks(const char *name, int palette);
    void connectControls();
    void Form_Activate();
    void adoptScale();
    void wearColors();
    void showChoice(int palette);
    void showCustomColors();
    ColorBlocks *blocksOf(int palette) const;
    const PaletteColor &chosenColor(int palette) const;
    PaletteColor &chosenCustomColor();

    std::array<ColorPalette, PaletteCount> Palettes;
    ColorPalette SavedColors; ///< the custom ones as they stood when the window opened
    bool LabelEditOn = false; ///< what CCText holds is to be taken
    int EditedBlock = 1;      ///< whose label it is
};
