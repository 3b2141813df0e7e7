/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "copiedtext.h"

#include "dialogparts.h"
#include "limitsfixtures.h"
#include "mainwindow.h"
#include "readingorder.h"
#include "recordview.h"
#include "sandbox.h"
#include "texts.h"
#include "windowfixture.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

// What is copied out of the window has no marks of the reading order. Only on a display the clipboard has an owner.

class CopiedTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void copiesLabelWithoutMarks();
    void selectsWithoutMarks();
    void leavesOtherTextsAlone();
    void cleanup();
};

void CopiedTextTest::init()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    prepareWindow();
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->clear(QClipboard::Selection);
}

void CopiedTextTest::copiesLabelWithoutMarks()
{
    MainWindow window;
    QVERIFY(open(window));
    window.pages()->setCurrentWidget(part<QWidget>(window, "problems"));
    QCoreApplication::processEvents();
    auto *label = part<QLabel>(window, "problemText");
    QVERIFY(label->isVisible());
    const QString shown = label->text();
    QVERIFY(ReadingOrder::withoutMarks(shown) != shown); // the names are isolated
    label->setFocus();
    QTest::keySequence(label, QKeySequence::SelectAll);
    QTest::keySequence(label, QKeySequence::Copy);
    QCOMPARE(QGuiApplication::clipboard()->text(), ReadingOrder::withoutMarks(shown));
}

void CopiedTextTest::selectsWithoutMarks()
{
    QObject context;
    CopiedText::removeMarks(&context);
    const QString path = ReadingOrder::leftToRight(text("/etc/passwd"));
    QGuiApplication::clipboard()->setText(path, QClipboard::Selection);
    QCOMPARE(QGuiApplication::clipboard()->text(QClipboard::Selection), text("/etc/passwd"));
}

void CopiedTextTest::leavesOtherTextsAlone()
{
    QObject context;
    CopiedText::removeMarks(&context);
    QSignalSpy changed(QGuiApplication::clipboard(), &QClipboard::dataChanged);
    QGuiApplication::clipboard()->setText(QStringLiteral(u"\u0645\u200c\u0645 /etc"));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral(u"\u0645\u200c\u0645 /etc"));
    QCOMPARE(changed.size(), 1);
}

void CopiedTextTest::cleanup()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

QTEST_MAIN(CopiedTextTest)

#include "copiedtexttest.moc"
