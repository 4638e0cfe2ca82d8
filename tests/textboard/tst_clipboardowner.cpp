// A clipboard whose owner answers slowly or no more: how often it is asked, and when first.
#include "tests/support/MainWindow.h"

#include "platform/controls/Toolbar.h"
#include "textboard/TextBoard.h"

#include <QClipboard>
#include <QMimeData>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// What another program offers, with the questions counted that it doesn't answer.
class Offer : public QMimeData
{
public:
    enum Answers { Nothing, Formats, All };

    Offer(Answers answers, int &unanswered) : Answered(answers), Unanswered(unanswered) {}

    QStringList formats() const override
    {
        return isAnswered(Formats)
                   ? QStringList{"text/plain;charset=utf-8", "text/plain", "text/html"}
                   : QStringList();
    }
    bool hasFormat(const QString &format) const override { return formats().contains(format); }

protected:
    QVariant retrieveData(const QString &, QMetaType) const override
    {
        return isAnswered(All) ? QVariant(QByteArray("a\xC3\xA9")) : QVariant();
    }

private:
    bool isAnswered(Answers question) const
    {
        if (Answered < question)
            ++Unanswered;
        return Answered >= question;
    }

    Answers Answered;
    int &Unanswered;
};

} // namespace

class TestClipboardOwner : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QGuiApplication::clipboard()->clear(); }

    void isAskedOnceForAPaste_data()
    {
        QTest::addColumn<int>("answers");
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<int>("unanswered");
        QTest::newRow("silent") << int(Offer::Nothing) << "" << 1;
        QTest::newRow("silent about the text") << int(Offer::Formats) << "" << 1;
        QTest::newRow("answering") << int(Offer::All) << u"a\u00E9"_s << 0;
    }

    void isAskedOnceForAPaste()
    {
        QFETCH(int, answers);
        Desktop desktop;
        Zendova *window = desktop.start();
        int unanswered = 0;
        QGuiApplication::clipboard()->setMimeData(
            new Offer(static_cast<Offer::Answers>(answers), unanswered));
        unanswered = 0;
        window->EditPaste_Click();
        QTEST(window->TextBoard->Text(), "pasted");
        QTEST(unanswered, "unanswered");
        QCOMPARE(window->TextEditTB->button("Paste")->isEnabled(), answers != Offer::Nothing);
    }

    void isAskedAfterTheFirstPaint()
    {
        int unanswered = 0;
        QGuiApplication::clipboard()->setMimeData(new Offer(Offer::Nothing, unanswered));
        unanswered = 0;
        Desktop desktop;
        desktop.start();
        desktop.Window.reset();
        QTest::qWait(0);
        unanswered = 0;

        desktop.Window = std::make_unique<Zendova>(QString());
        desktop.Window->Start();
        QCOMPARE(unanswered, 0);
        QTRY_COMPARE(unanswered, 1);
        desktop.Window->repaint();
        QCoreApplication::processEvents();
        QCOMPARE(unanswered, 1);
    }

    void textFromBeforeTheStartCanBePasted()
    {
        int unanswered = 0;
        QGuiApplication::clipboard()->setMimeData(new Offer(Offer::All, unanswered));
        Desktop desktop;
        Zendova *window = desktop.start();
        QTRY_VERIFY(window->TextEditTB->button("Paste")->isEnabled());
    }
};

int main(int argc, char *argv[])
{
    return runWindowTest<TestClipboardOwner>(argc, argv);
}

#include "tst_clipboardowner.moc"
