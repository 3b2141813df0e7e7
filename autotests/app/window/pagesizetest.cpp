/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "mainwindow.h"
#include "patience.h"
#include "recordview.h"
#include "sandbox.h"
#include "windowfixture.h"
#include "windowparts.h"

#include <KLocalizedString>
#include <KSqueezedTextLabel>

#include <QMap>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>

// Each page by itself, in the size of its hint.

namespace
{
/** Moves the pages to @p desk. */
QMap<QString, QWidget *> takePages(MainWindow &window, QWidget &desk)
{
    QTabWidget *tabs = window.pages();
    const QSignalBlocker blocker(tabs); // the menu of pages is not for an empty window
    QMap<QString, QWidget *> pages;
    while (tabs->count() > 0) {
        QWidget *page = pages.insert(tabs->tabText(0), tabs->widget(0)).value();
        page->setParent(&desk);
        page->show();
    }
    return pages;
}

void setLanguage(const QString &language)
{
    KLocalizedString::setLanguages({language});
    QApplication::setLayoutDirection(language == QLatin1String("ar") ? Qt::RightToLeft : Qt::LeftToRight);
}

/** The lines that are elided. */
QStringList squeezedTexts(const QWidget &page)
{
    QStringList squeezed;
    const auto lines = page.findChildren<KSqueezedTextLabel *>();
    for (const KSqueezedTextLabel *line : lines) {
        if (line->isVisible() && line->isSqueezed()) {
            squeezed.append(line->fullText());
        }
    }
    return squeezed;
}

/** How much more room the scrolling parts of a page would need. */
QStringList scrolledParts(const QWidget &page)
{
    QStringList scrolled;
    const auto areas = page.findChildren<QScrollArea *>();
    for (const QScrollArea *area : areas) {
        for (const QScrollBar *bar : {area->horizontalScrollBar(), area->verticalScrollBar()}) {
            if (bar->maximum() > 0 || bar->isVisible()) {
                scrolled.append(QStringLiteral("%1: %2").arg(area->objectName()).arg(bar->maximum()));
            }
        }
    }
    return scrolled;
}
}

class PageSizeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void showsWholeTexts_data();
    void showsWholeTexts();
    void showsAllColumnsAtFirst_data();
    void showsAllColumnsAtFirst();
    void cleanup();

private:
    const QFont m_font = QApplication::font();
};

void PageSizeTest::initTestCase()
{
    for (const char *domain : {"ormel-users", "ormel_kcm_users"}) {
        KLocalizedString::addDomainLocaleDir(domain, QStringLiteral(LOCALE_DIR));
    }
}

void PageSizeTest::init()
{
    prepareWindow();
}

void PageSizeTest::showsWholeTexts_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("isRead");

    for (const char *language : {"en", "de", "ar"}) {
        QTest::addRow("%s, before accounts are read", language) << QString::fromLatin1(language) << false;
        QTest::addRow("%s, with accounts", language) << QString::fromLatin1(language) << true;
    }
}

void PageSizeTest::showsWholeTexts()
{
    QFETCH(QString, language);
    QFETCH(bool, isRead);

    setLanguage(language);
    MainWindow window;
    // In windows of their own, a display that is scaled would round their sizes.
    QWidget desk;
    const QMap<QString, QWidget *> pages = takePages(window, desk);
    desk.resize(window.size());
    desk.show();
    QVERIFY(QTest::qWaitForWindowExposed(&desk, patience));
    if (isRead) {
        window.reload();
        QVERIFY(waitUntilRead(window));
    }
    for (auto page = pages.begin(); page != pages.end(); ++page) {
        QCoreApplication::processEvents();
        page.value()->resize(page.value()->sizeHint());
        QCoreApplication::processEvents();
        const QStringList faults = scrolledParts(**page) + squeezedTexts(**page) + clippedTexts(**page);
        QVERIFY2(faults.isEmpty(), qPrintable(page.key() + QLatin1String(": ") + faults.join(QLatin1Char('|'))));
    }
}

void PageSizeTest::showsAllColumnsAtFirst_data()
{
    QTest::addColumn<QString>("language");

    for (const char *language : {"en", "de", "ar"}) {
        QTest::addRow("%s", language) << QString::fromLatin1(language);
    }
}

void PageSizeTest::showsAllColumnsAtFirst()
{
    QFETCH(QString, language);

    setLanguage(language);
    QFont font;
    font.setPixelSize(13); // 10 points at 96 dpi
    QApplication::setFont(font);
    // The longest of a new system, and more than fit without scrolling up and down.
    QByteArray users("list:x:38:38:Mailing List Manager:/var/list:/usr/sbin/nologin\n"
                     "systemd-timesync:x:997:997:systemd Time Synchronization:/:/usr/sbin/nologin\n"
                     "nobody:x:65534:65534:nobody:/nonexistent:/usr/sbin/nologin\n");
    for (int uid = 1000; uid < 1050; ++uid) {
        const QByteArray number = QByteArray::number(uid);
        users += "user" + number + ":x:" + number + ":50:Somebody Somewhere:/home/user" + number + ":/bin/sh\n";
    }
    Sandbox::setAccounts(users, "list:x:38:\nsystemd-timesync:x:997:\nstaff:x:50:\nnogroup:x:65534:\n");
    MainWindow window;
    QVERIFY(open(window));
    for (int page = 0; page < 2; ++page) {
        window.pages()->setCurrentIndex(page);
        QTRY_COMPARE_WITH_TIMEOUT(accountsView(window)->horizontalScrollBar()->maximum(), 0, patience);
        QTRY_COMPARE_WITH_TIMEOUT(clippedTexts(window).join(QLatin1Char('|')), QString(), patience);
    }
}

void PageSizeTest::cleanup()
{
    QApplication::setFont(m_font);
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

QTEST_MAIN(PageSizeTest)

#include "pagesizetest.moc"
