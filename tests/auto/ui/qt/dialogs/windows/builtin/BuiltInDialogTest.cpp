#include "BuiltInDialogTest.h"

#include <QApplication>
#include <QFileDialog>
#include <QTest>

#include <stdexcept>

using namespace zelmar::internal;

// BuiltInDialogTest

BuiltInDialogTest::BuiltInDialogTest()
{
    QApplication::setQuitOnLastWindowClosed(false);
}

void BuiltInDialogTest::init()
{
    m_folders = std::make_unique<DialogFolders>();
    for (const char* name : {"a.dat", "b.dat", "c.csv", "deeper/d.dat"})
        m_folders->addFile(QLatin1String(name));
    m_window = std::make_unique<QWidget>();
    m_window->show();
}

void BuiltInDialogTest::cleanup()
{
    m_window.reset();
    QCOMPARE(RecordingSink::alive(), 0);
    QCOMPARE(BuiltInDialog::leaked(), 0);
    for (const QWidget* widget : QApplication::topLevelWidgets())
        QVERIFY2(!qobject_cast<const QFileDialog*>(widget), "a dialog was left behind");
}

std::unique_ptr<BuiltInDialog> BuiltInDialogTest::makeDialog(REFCLSID classId) const
{
    auto dialog = std::make_unique<BuiltInDialog>(classId);
    if (!dialog->setFolder(path()))
        qWarning("the dialog takes no folder");
    return dialog;
}

std::unique_ptr<BuiltInDialog> BuiltInDialogTest::makeDialogWithTypes(REFCLSID classId) const
{
    auto dialog = makeDialog(classId);
    if (!dialog->setTypes({{"Data", "*.dat"}, {"Tables", "*.csv;*.tab"}, {"All", "*"}}))
        qWarning("the dialog takes no types");
    return dialog;
}

// BuiltInDialogRunTest

void BuiltInDialogRunTest::cleanup()
{
    const QString problem = takeProblem();
    BuiltInDialogTest::cleanup();
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

/// Makes the user of the next dialog cause `event`: "folder", "type" or "ok". The first "folder" needs no action.
void BuiltInDialogRunTest::causeEvent(const QString& event)
{
    if (event == QLatin1String("type"))
        onShow("pick a type", [this] { userPicksType(1); });
    else if (event == QLatin1String("ok"))
        onShow("accept", [this] { userAccepts("a.dat"); });
    else
        onShowDoNothing();
}

/// Checks that an earlier run has left nothing behind.
void BuiltInDialogRunTest::acceptsInTheNextRun(BuiltInDialog& dialog)
{
    dialog.sink().whenTold = {};
    onShow("accept in the next run", [this] { userAccepts("b.dat"); });
    QCOMPARE(dialog.show(m_window.get()), S_OK);
    QCOMPARE(dialog.result(), path("b.dat"));
}

void BuiltInDialogRunTest::refused()
{
    const auto dialog = makeDialogWithTypes();
    QStringList chosen;
    dialog->sink().whenTold = [&](const QString& event) {
        if (event != QLatin1String("ok"))
            return S_OK;
        chosen += dialog->result();
        return chosen.size() == 1 ? HRESULT(S_FALSE) : S_OK;
    };
    const ComPtr<RecordingSink> other(new RecordingSink, false);
    DWORD cookie = 0;
    dialog->get()->Advise(other.get(), &cookie); // this sink accepts, but one refusal is enough
    onShow("refused", [&] {
        userAccepts("a.dat");
        QCOMPARE(dialog->result(), QString());
    });
    onShow("accepted", [this] { userAccepts("b.dat"); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(chosen, (QStringList{path("a.dat"), path("b.dat")}));
    QCOMPARE(dialog->result(), path("b.dat"));
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "ok", "ok"}));
    QCOMPARE(other->events, dialog->sink().events);
}

void BuiltInDialogRunTest::closedByASink_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<HRESULT>("result");
    QTest::newRow("at the start") << "folder" << S_OK;
    QTest::newRow("with a success of its own") << "folder" << HRESULT(S_FALSE);
    QTest::newRow("with a failure") << "folder" << E_FAIL;
    QTest::newRow("as if cancelled") << "folder" << cancelledResult;
    QTest::newRow("on a change of type") << "type" << HRESULT(S_FALSE);
    QTest::newRow("on acceptance") << "ok" << S_OK;
}

void BuiltInDialogRunTest::closedByASink()
{
    QFETCH(QString, event);
    QFETCH(HRESULT, result);
    const auto dialog = makeDialogWithTypes();
    dialog->sink().whenTold = [&](const QString& told) { return told == event ? dialog->get()->Close(result) : S_OK; };
    causeEvent(event);
    QCOMPARE(dialog->show(m_window.get()), result);
    QCOMPARE(dialog->result(), QString()); // nothing was accepted
    QCOMPARE(dialog->results(), QStringList());
    QCOMPARE(dialog->sink().events.last(), event);
    acceptsInTheNextRun(*dialog);
}

void BuiltInDialogRunTest::ownerDestroyed_data()
{
    QTest::addColumn<QString>("event");
    QTest::newRow("while the dialog waits") << "";
    QTest::newRow("by a sink at the start") << "folder";
    QTest::newRow("by a sink on a change of type") << "type";
    QTest::newRow("by a sink on acceptance") << "ok";
}

void BuiltInDialogRunTest::ownerDestroyed()
{
    QFETCH(QString, event);
    const auto dialog = makeDialogWithTypes();
    dialog->sink().whenTold = [&](const QString& told) {
        if (told == event)
            m_window.reset();
        return S_OK;
    };
    if (event.isEmpty())
        onShow("destroy", [this] { m_window.reset(); });
    else
        causeEvent(event);
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QVERIFY(!m_window);
    QCOMPARE(dialog->result(), QString());
    QCOMPARE(dialog->folder(), path());
    acceptsInTheNextRun(*dialog);
}

void BuiltInDialogRunTest::throwingSink_data()
{
    QTest::addColumn<QString>("event");
    QTest::newRow("at the start") << "folder";
    QTest::newRow("on a change of type") << "type";
    QTest::newRow("on acceptance") << "ok";
}

void BuiltInDialogRunTest::throwingSink()
{
    QFETCH(QString, event);
    const auto dialog = makeDialogWithTypes();
    dialog->sink().whenTold = [&](const QString& told) {
        if (told == event)
            throw std::runtime_error("the program's own");
        return S_OK;
    };
    causeEvent(event);
    QVERIFY_EXCEPTION_THROWN(dialog->show(m_window.get()), std::runtime_error);
    QVERIFY(m_window->findChildren<QFileDialog*>().isEmpty());
    QCOMPARE(dialog->result(), QString());
    QCOMPARE(dialog->sink().events.last(), event);
    QCOMPARE(dialog->get()->Close(S_OK), E_UNEXPECTED);
    acceptsInTheNextRun(*dialog);
}

/// A sink that asks for results while the dialog is open must not get those of an earlier run.
void BuiltInDialogRunTest::secondRunShowsNoOldResult()
{
    const auto dialog = makeDialogWithTypes();
    QVERIFY(dialog->setOptions(FOS_ALLOWMULTISELECT));
    onShow("first", [this] { userAccepts("a.dat"); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path("a.dat"));
    dialog->sink().whenTold = [&](const QString&) {
        return dialog->result().isEmpty() && dialog->results().isEmpty() ? S_OK : dialog->get()->Close(E_FAIL);
    };
    onShow("second", [&] {
        QCOMPARE(dialog->result(), QString());
        QCOMPARE(dialog->results(), QStringList());
        userCancels();
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(dialog->result(), QString());
    QCOMPARE(dialog->results(), QStringList());
}
