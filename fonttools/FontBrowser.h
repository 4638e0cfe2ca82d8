// The window in which the user walks through all fonts: the list on the left, the name and the
// sample sheet of the chosen one on the right. It changes no font itself: its owner asks which one
// was set. Every font that it shows is given back when the window goes.
#pragma once

#include "fonttools/PassingFonts.h"
#include "platform/controls/FormDialog.h"

class FontList;
class QLabel;
class QListView;
class QPushButton;
class QScrollBar;
class SampleFrame;
class SamplePlate;
class SplitBar;

class FontBrowser : public FormDialog
{
    Q_OBJECT

public:
    /// The list, and FontCount, FontLF and their like, must be there as long as the window. `shown`
    /// is SelFont, which outlives the window: the font last shown on the sheet, empty after a
    /// button has closed it. A window that opens on that same font does not draw it anew.
    FontBrowser(const FontList &fonts, QString &shown, QWidget *parent);

    /// To be called once, before the window is shown: the program's current font, on which it
    /// opens. The position in the picker is not used.
    void FontNameXchg(int position, const QString &name);

    /// The font that the user has set, once the window is closed; empty for none.
    const QString &ChosenFont() const { return Chosen; }

    // ---- FontBrowser.cpp: the list and what it shows

    QListView *FontListView = nullptr;
    QLabel *TotalFonts = nullptr, *SysFonts = nullptr, *TTFonts = nullptr;
    QLabel *FontNameLabel = nullptr;
    ::SamplePlate *SamplePlate = nullptr;
    QPushButton *SetFontButton = nullptr, *OkButton = nullptr;

    void FontListView_ItemClick(int row);
    void ShowFontSamples(const QString &name);
    void SetFontButton_Click();
    void OkButton_Click();

    // ---- FontBrowserResize.cpp: sizes, scrolling and the splitter

    SampleFrame *SPlateHolder = nullptr;
    QScrollBar *SHScroll = nullptr, *SVScroll = nullptr;
    ::SplitBar *SplitBar = nullptr;

    /// The height and width of the window with its frame, in twips.
    double OuterHeight() const;
    double OuterWidth() const;
    void FitFontNameLabel();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Form_Load();
    void createControls();
    void createSummary();
    void createSheet();
    void showDesignSheet();

    void Form_Resize();
    void layOutDown(double grown);
    void layOutAcross(double grown);
    void placePlateAcross();
    void fillRoomAcross(double grown);
    void SplitBar_MouseMove(double SplitLeft);
    void SHScroll_Change(int value);
    void SVScroll_Change(int value);
    void placeSheet();
    void moveSheet(double TwipRect::*edge, double by);
    bool recomputeBarAcross();
    void recomputeBarDown();
    void nameInSize(int points);
    double nameEdge(int points) const;
    void takeMinimum();
    void holdMinimum();

    const FontList &Fonts;
    QString &SelFont;
    QString OpenFontName;
    QString Chosen;
    PassingFonts Shown;
    double MinHeight = 0, MinWidth = 0;   ///< twips, frame included, as are the next two
    double PrevHeight = 0, PrevWidth = 0; ///< when last laid out
};
