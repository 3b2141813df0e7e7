/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "pagelayout.h"

#include "dialogparts.h"
#include "partsplitter.h"

#include <QLabel>
#include <QTest>

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
};

void PageLayoutTest::givesWiderPagesToTheParts()
{
    Page page;
    QVERIFY(QTest::qWaitForWindowExposed(&page.page));
    page.holdBorders("listColumns");
    const int list = page.list->width();
    const int upper = page.upper->width();
    page.page.resize(900, 400);
    QTRY_COMPARE(page.upper->width(), upper + 300);
    QCOMPARE(page.list->width(), list);
}

void PageLayoutTest::givesHigherPagesToTheLastPart()
{
    Page page;
    QVERIFY(QTest::qWaitForWindowExposed(&page.page));
    page.holdBorders("listParts");
    const int upper = page.upper->height();
    const int lower = page.lower->height();
    page.page.resize(600, 700);
    QTRY_COMPARE(page.lower->height(), lower + 300);
    QCOMPARE(page.upper->height(), upper);
}

QTEST_MAIN(PageLayoutTest)

#include "pagelayouttest.moc"
