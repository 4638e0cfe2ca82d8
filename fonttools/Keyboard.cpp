// The controls of the keyboard window, the font and size in which it shows the characters, and the
// Shift keys: those of the picture by the mouse, the real ones wherever the focus is.
#include "fonttools/Keyboard.h"

#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "fontmap/CharInfo.h"
#include "fonttools/FillFontCombo.h"
#include "fonttools/KeyboardLayout.h"
#include "fonttools/KeyboardPicture.h"
#include "fonttools/TakeFont.h"
#include "platform/controls/Accessibility.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/Icons.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QToolButton>

namespace {

constexpr double Width = 10845; // twips
constexpr double Height = 6030;

constexpr TwipRect Picture = {0, 0, KeyboardWidth, KeyboardHeight};

constexpr ControlRow Rows[] = {
    {"cmbFontName", "Keyboard", {90, 75, 5010, 330}, "Select a Font"},
    {"lblFontSize", "Keyboard", {5340, 120, 840, 240}},
    {"lblFontSizeNumber", "Keyboard", {6195, 120, 240, 240}, "Font Size (Click to Change)"},
    {"tbxFontSizeEdit", "Keyboard", {6180, 90, 270, 300}, "Enter font size"},
    {"sldFontSize", "Keyboard", {6465, 105, 1890, 270}, "Set Font Size"},
    {"chkSplChar", "Keyboard", {10425, 75, 330, 330}, "Display special characters"},
    {"picKeyboard", "Keyboard", {90, 480, KeyboardWidth, KeyboardHeight}, "", "Keyboard"},
    {"lblFontChar", "picKeyboard", Picture, "", "Keys"},
    {"lblLShift",
     "picKeyboard",
     {180, 3375, 1305, 600},
     "Press to display uppercase characters",
     "Left Shift"},
    {"lblRShift",
     "picKeyboard",
     {8805, 3375, 1695, 600},
     "Press to display uppercase characters",
     "Right Shift"},
    {"picLShiftPressed", "picKeyboard", {135, 3330, 1395, 690}, "", "Left Shift, pressed"},
    {"picRShiftPressed", "picKeyboard", {8775, 3330, 1755, 675}, "", "Right Shift, pressed"},
    // Its upper and its right edge lie outside the picture.
    {"picSplChar", "picKeyboard", {4245, -30, 6450, 5025}, "", "Special characters"},
    {"lblSplChar", "picSplChar", {0, 0, 6450, 5025}, "", "Characters without a key"},
    {"cmdSetFont", "Keyboard", {6270, 5625, 3135, 330}},
    {"cmdOK", "Keyboard", {9465, 5625, 1290, 330}},
};

/// From a character's place to the edge of the face of its key.
constexpr double FaceEdge = 60; // twips

/// The modifiers that count as a state of Shift.
constexpr auto ShiftStates =
    Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

} // namespace

Keyboard::Keyboard(const FontList &fonts, QWidget *parent)
    : FormDialog("Keyboard", Rows, Width, Height, parent)
{
    setWindowTitle("Keyboard Layout Viewer");
    createControls();
    FillFontCombo(*cmbFontName, fonts);
    ShowUnshifted();
    SetToolTips(ToolTipsOn);
    for (int slot = 1; slot < SpecialSlots; ++slot)
        lblSplChar->setToolTip(slot, ToolTipsOn ? SpecialKeystroke(slot) : QString());
    orderTabs();
    // Shift is watched wherever the focus is, in the open list of the fonts too.
    installEventFilter(this);
    for (QWidget *control : findChildren<QWidget *>())
        control->installEventFilter(this);
}

void Keyboard::createControls()
{
    cmbFontName = Form.Make<FontCombo>("cmbFontName");
    QLabel *label = Form.MakeLabel("lblFontSize", "Font Size:", Qt::AlignLeft);
    sldFontSize = Form.MakeNumberSlider(
        {"sldFontSize", "lblFontSizeNumber", "tbxFontSizeEdit", "Set Font Size"}, 8, 36,
        NumberSlider::NoNumber::CountsZero);
    label->setBuddy(sldFontSize->slider());
    chkSplChar = Form.Make<QToolButton>("chkSplChar");
    chkSplChar->setCheckable(true);
    chkSplChar->setFocusPolicy(Qt::StrongFocus);
    chkSplChar->setIcon(Icons::icon("SplChar"));
    chkSplChar->setIconSize(QSize(16, 16));
    createPicture();
    createPanel();
    cmdSetFont = Form.Make<QPushButton>("cmdSetFont", "Set this as Current Font and Exit");
    cmdOK = Form.Make<QPushButton>("cmdOK", "Ok");
    cmdOK->setDefault(true);
    connectControls();
}

void Keyboard::createPicture()
{
    picKeyboard = new KeyboardPicture("keyboard.svg", Form.scale(), this);
    setAccessibleRole(picKeyboard, QAccessible::Graphic); // first, as it must be
    Form.Adopt(picKeyboard, "picKeyboard");
    lblFontChar = makeCells("lblFontChar", KeyCount, [](int key) {
        return CharacterKeys.at(static_cast<std::size_t>(key)).Place;
    });
    lblFontChar->setTransparent(true);
    lblFontChar->setReach(FaceEdge);
    // A click on a character is one on the picture.
    lblFontChar->setAttribute(Qt::WA_TransparentForMouseEvents);
    lblFontChar->setReading(1, [this](int key) { return SpokenKey(key, isShifted()); });
    for (int key = 0; key < KeyCount; ++key)
        lblFontChar->setBorderStyle(key, 0);
    lblLShift = makeShift("lblLShift");
    lblRShift = makeShift("lblRShift");
    picLShiftPressed = makeShift("picLShiftPressed", "keyboard-left-shift.svg");
    picRShiftPressed = makeShift("picRShiftPressed", "keyboard-right-shift.svg");
}

CharCells *Keyboard::makeCells(const char *name, int count, TwipRect (*placeOf)(int))
{
    auto *cells = Form.Make<CharCells>(name, count);
    cells->setScale(Form.scale());
    std::vector<TwipRect> places;
    for (int index = 0; index < count; ++index)
        places.push_back(placeOf(index));
    cells->setPlaces(places);
    return cells;
}

KeyboardPicture *Keyboard::makeShift(const char *name, const QString &file)
{
    auto *key = Form.Make<KeyboardPicture>(name, file, Form.scale());
    key->setCursor(Qt::PointingHandCursor);
    return key;
}

void Keyboard::createPanel()
{
    picSplChar = Form.Make<QFrame>("picSplChar");
    picSplChar->setFrameStyle(QFrame::Box | QFrame::Plain);
    picSplChar->setAutoFillBackground(true);
    picSplChar->setAttribute(Qt::WA_NoMousePropagation);
    picSplChar->hide();
    lblSplChar = makeCells("lblSplChar", SpecialSlots, SpecialPlace);
    lblSplChar->setReading(SpecialColumns, SpokenSpecial);
    for (int slot = 1; slot < SpecialSlots; ++slot)
        lblSplChar->setCaption(slot, CharacterOf(SpecialCode(slot)));
}

void Keyboard::connectControls()
{
    connect(cmbFontName, &FontCombo::Click, this, &Keyboard::cmbFontName_Click);
    connect(sldFontSize, &NumberSlider::ValueChanged, this, &Keyboard::sldFontSize_Change);
    connect(sldFontSize, &NumberSlider::Finished, sldFontSize->slider(),
            [this] { sldFontSize->slider()->setFocus(); });
    connect(chkSplChar, &QToolButton::toggled, picSplChar, &QWidget::setVisible);
    connect(picKeyboard, &QAbstractButton::clicked, this, &Keyboard::lblFontChar_Click);
    connect(lblFontChar, &CharCells::MouseDown, this, &Keyboard::lblFontChar_Click);
    for (const KeyboardPicture *key : {lblLShift, lblRShift})
        connect(key, &QAbstractButton::clicked, this, &Keyboard::ShowShifted);
    for (const KeyboardPicture *key : {picLShiftPressed, picRShiftPressed})
        connect(key, &QAbstractButton::clicked, this, &Keyboard::ShowUnshifted);
    connect(cmdSetFont, &QPushButton::clicked, this, &Keyboard::cmdSetFont_Click);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

void Keyboard::orderTabs()
{
    QWidget *before = cmdOK;
    for (QWidget *next : std::initializer_list<QWidget *>{cmbFontName, sldFontSize->slider(),
                                                          chkSplChar, cmdSetFont})
        setTabOrder(std::exchange(before, next), next);
    cmdOK->setFocus();
}

void Keyboard::SetupKeyboard(int FontIndex, const QString &FontName, double FontSize)
{
    KBStartFont = FontName;
    sldFontSize->setValue(NumberSlider::whole(FontSize));
    sldFontSize->showNumber(QString::number(sldFontSize->value()));
    showFont(FontName);
    cmbFontName->SelectItem(FontIndex);
    cmdSetFont->setEnabled(false);
}

void Keyboard::showFont(const QString &name)
{
    QFont font = Shown.font(name);
    font.setPointSize(sldFontSize->value());
    lblFontChar->setCellFont(font);
    lblSplChar->setCellFont(font);
}

void Keyboard::cmbFontName_Click()
{
    if (cmbFontName->Text() == KBFontName)
        return;
    KBFontName = cmbFontName->Text();
    cmdSetFont->setEnabled(KBFontName != KBStartFont);
    showFont(KBFontName);
}

void Keyboard::sldFontSize_Change(int value)
{
    QFont font = lblFontChar->cellFont();
    font.setPointSize(value);
    lblFontChar->setCellFont(font);
    lblSplChar->setCellFont(font);
    sldFontSize->showNumber(QString::number(value));
}

void Keyboard::ShowUnshifted()
{
    showShift(false);
}

void Keyboard::ShowShifted()
{
    showShift(true);
}

void Keyboard::showShift(bool shifted)
{
    picLShiftPressed->setVisible(shifted);
    picRShiftPressed->setVisible(shifted);
    for (int index = 0; index < KeyCount; ++index) {
        const CharacterKey &key = CharacterKeys.at(static_cast<std::size_t>(index));
        lblFontChar->setCaption(index, CharacterOf(shifted ? key.Shifted : key.Unshifted));
    }
}

bool Keyboard::isShifted() const
{
    return !picLShiftPressed->isHidden();
}

bool Keyboard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress)
        keyDown(*static_cast<QKeyEvent *>(event));
    else if (event->type() == QEvent::KeyRelease)
        keyUp(*static_cast<QKeyEvent *>(event));
    return FormDialog::eventFilter(watched, event);
}

void Keyboard::keyDown(const QKeyEvent &key)
{
    if (key.key() == Qt::Key_Shift)
        HeldShifts.insert(key.nativeScanCode());
    if ((key.modifiers() & ShiftStates) == Qt::ShiftModifier)
        ShowShifted();
}

void Keyboard::keyUp(const QKeyEvent &key)
{
    if (key.isAutoRepeat())
        return;
    if (key.key() == Qt::Key_Shift)
        HeldShifts.remove(key.nativeScanCode());
    if (!(key.modifiers() & ShiftStates) && HeldShifts.isEmpty())
        ShowUnshifted();
}

bool Keyboard::event(QEvent *event)
{
    // Another window will see a Shift key that is held come up.
    if (event->type() == QEvent::WindowDeactivate && !HeldShifts.isEmpty()) {
        HeldShifts.clear();
        ShowUnshifted();
    }
    return FormDialog::event(event);
}

void Keyboard::lblFontChar_Click()
{
    ZndvMsg("\r\rThese buttons are displayed for information only.\r\r"
            "You can click only on the 'Shift' buttons or press\r"
            "the <Shift> key on your keyboard to view the\r"
            "uppercase letters of the currently selected font.",
            "OK", "Zendova Interaction Error", false, 1);
}

void Keyboard::cmdSetFont_Click()
{
    if (!AskToSetFont(KBFontName))
        return;
    Chosen = KBFontName;
    accept();
}
