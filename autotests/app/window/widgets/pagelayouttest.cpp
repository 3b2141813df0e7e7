/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "pagelayout.h"

#include "contentarea.h"
#include "dialogparts.h"
#include "partsplitter.h"
#include "patience.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

namespace
{
/** A list beside an upper and a lower part. */
struct Page {
    Page()
    {
        list->setObjectName(QStringLiteral("list"));
        PageLayout::arrange(&page, list, {upper, lower});
        page.resize(600, 400);
        page.show();
    }

    /** As if the operator had moved it. */
    void holdBorders(const char *splitter) const
    {
        auto *found = part<PartSplitter>(page, splitter);
        found->restoreBorders(found->saveState());
    }

    QWidget page;
    QLabel *list = new QLabel(QStringLiteral("list"));
    QLabel *upper = new QLabel(QStringLiteral("upper"));
    QLabel *lower = new QLabel(QStringLiteral("lower"));
};
}

class PageLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesWiderPagesToTheParts();
    void givesHigherPagesToTheLastPart();
    void makesRoomForScrollBar();
    void keepsTitleOnOneLine();
};

void PageLayoutTest::givesWiderPagesToTheParts()
{
    Page page;
    QVERIFY(QTest::qWaitForWindowExposed(&page.page, patience));
    page.holdBorders("listColumns");
    const int list = page.list->width();
    const int upper = page.upper->width();
    page.page.resize(900, 400);
    QTRY_COMPARE_WITH_TIMEOUT(page.upper->width(), upper + 300, patience);
    QCOMPARE(page.list->width(), list);
}

void PageLayoutTest::givesHigherPagesToTheLastPart()
{
    Page page;
    QVERIFY(QTest::qWaitForWindowExposed(&page.page, patience));
    page.holdBorders("listParts");
    const int upper = page.upper->height();
    const int lower = page.lower->height();
    page.page.resize(600, 700);
    QTRY_COMPARE_WITH_TIMEOUT(page.lower->height(), lower + 300, patience);
    QCOMPARE(page.upper->height(), upper);
}

void PageLayoutTest::makesRoomForScrollBar()
{
    auto *form = new QWidget;
    auto *column = new QVBoxLayout(form);
    for (int i = 0; i < 20; ++i) {
        auto *field = new QLineEdit;
        field->setMinimumWidth(250);
        column->addWidget(field);
    }
    auto *area = new ContentArea;
    area->setWidget(form);
    QWidget page;
    PageLayout::arrange(&page, area, {new QLabel(QStringLiteral("beside"))});
    page.resize(600, 300);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page, patience));
    QTRY_VERIFY_WITH_TIMEOUT(area->verticalScrollBar()->isVisible(), patience);
    QTRY_COMPARE_WITH_TIMEOUT(area->horizontalScrollBar()->maximum(), 0, patience);
    const int width = area->width();
    page.resize(600, 900);
    QTRY_VERIFY_WITH_TIMEOUT(!area->verticalScrollBar()->isVisible(), patience);
    QTRY_VERIFY_WITH_TIMEOUT(area->width() < width, patience);
}

void PageLayoutTest::keepsTitleOnOneLine()
{
    QWidget page;
    auto *rows = new QGridLayout(&page);
    auto *field = new QLabel(QStringLiteral("one\ntwo\nthree"), &page);
    const QLabel *title = PageLayout::addRow(rows, QStringLiteral("Title:"), field);
    page.resize(300, 400);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page, patience));
    QCOMPARE(title->height(), title->sizeHint().height());
    QCOMPARE(title->y(), field->y());
}

QTEST_MAIN(PageLayoutTest)

#include "pagelayouttest.moc"
