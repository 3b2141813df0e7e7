/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "about.h"
#include "contrast.h"
#include "dialogparts.h"
#include "icons.h"
#include "icontheme.h"
#include "mainwindow.h"
#include "pageparts.h"
#include "patience.h"
#include "recordview.h"
#include "sandbox.h"
#include "texts.h"
#include "windowfixture.h"
#include "windowparts.h"

#include <QAction>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QStyle>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>

#include <algorithm>

namespace
{
QPalette whiteOnBlack()
{
    QPalette palette(
        Qt::white, Qt::black, Qt::white, Qt::darkGray, Qt::gray, Qt::white, Qt::white, Qt::black, Qt::black);
    palette.setColor(QPalette::AlternateBase, Qt::black);
    palette.setColor(QPalette::Highlight, Qt::yellow);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    palette.setColor(QPalette::PlaceholderText, Qt::white);
    palette.setColor(QPalette::Link, Qt::yellow);
    return palette;
}

/** Where a widget is in a picture of its window. */
QRect areaOf(const QWidget &widget)
{
    const qreal ratio = widget.devicePixelRatioF();
    const QRect area = widget.visibleRegion().boundingRect().translated(widget.mapTo(widget.window(), QPoint()));
    return {area.topLeft() * ratio, area.size() * ratio};
}

/** The parts of a window that only show texts. */
QVector<const QWidget *> visibleTextParts(const QWidget &window)
{
    QVector<const QWidget *> parts;
    const auto labels = window.findChildren<QLabel *>();
    for (QLabel *label : labels) {
        if (!label->text().isEmpty()) {
            parts.append(label);
        }
    }
    const auto views = window.findChildren<QTreeView *>();
    for (QTreeView *view : views) {
        view->clearSelection(); // which has colours of its own
        parts << view->viewport() << view->header()->viewport();
    }
    const auto edits = window.findChildren<QPlainTextEdit *>();
    for (const QPlainTextEdit *edit : edits) {
        parts.append(edit->viewport());
    }
    parts.erase(
        std::remove_if(parts.begin(), parts.end(), [](const QWidget *part) { return part->visibleRegion().isEmpty(); }),
        parts.end());
    return parts;
}
}

/** Whether the whole window can be used with the keyboard or a screen reader, in high contrast and mirrored. */
class WindowAccessTest : public QObject
{
    Q_OBJECT

public:
    static void initMain();

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void hasUniqueMnemonics();
    void leadsToPartsByMnemonics();
    void namesAllElements();
    void reachesAllElementsByTab();
    void showsRowsWithoutRowsBelow();
    void drawsPicturesAsSharpAsTheScreen();
    void clipsNothing_data();
    void clipsNothing();
    void mirrors();
    void isReadableInHighContrast();
};

void WindowAccessTest::initMain()
{
    Icons::useScreenResolution();
}

void WindowAccessTest::initTestCase()
{
    About::setApplicationData();
}

void WindowAccessTest::init()
{
    prepareWindow();
}

void WindowAccessTest::cleanup()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setPalette(QApplication::style()->standardPalette());
}

void WindowAccessTest::hasUniqueMnemonics()
{
    MainWindow window;
    QVERIFY(open(window));
    // With the same mnemonic as a page, neither could be reached.
    QStringList pageKeys;
    for (int page = 1; page <= window.pages()->count(); ++page) {
        pageKeys.append(text("Alt+%1").arg(page));
    }
    for (int page = 0; page < window.pages()->count(); ++page) {
        window.pages()->setCurrentIndex(page);
        QStringList letters = mnemonics(*window.pages()->currentWidget());
        const QList<QAction *> menus = window.menuBar()->actions();
        for (const QAction *menu : menus) {
            letters.append(QKeySequence::mnemonic(menu->text()).toString());
        }
        letters += pageKeys;
        QVERIFY(!letters.contains(QString()));
        QStringList unique = letters;
        unique.removeDuplicates();
        QCOMPARE(letters.join(QLatin1Char(' ')), unique.join(QLatin1Char(' ')));
    }
}

void WindowAccessTest::leadsToPartsByMnemonics()
{
    MainWindow window;
    QVERIFY(open(window));
    const struct {
        Qt::Key page;
        Qt::Key letter;
        const char *part;
    } keys[] = {
        {Qt::Key_1, Qt::Key_L, "limitsTable"},
        {Qt::Key_2, Qt::Key_M, "membersView"},
        {Qt::Key_2, Qt::Key_L, "limitsTable"},
        {Qt::Key_3, Qt::Key_L, "linesTable"},
    };
    for (const auto &key : keys) {
        QTest::keyClick(&window, key.page, Qt::AltModifier);
        QTest::keyClick(&window, key.letter, Qt::AltModifier);
        QCOMPARE(QApplication::focusWidget()->objectName(), text(key.part));
    }
}

void WindowAccessTest::namesAllElements()
{
    MainWindow window;
    QVERIFY(open(window));
    for (int page = 0; page < window.pages()->count(); ++page) {
        window.pages()->setCurrentIndex(page);
        QCOMPARE(unnamedAccessibles(*window.pages()->currentWidget()).join(QLatin1Char(' ')), QString());
    }
}

void WindowAccessTest::reachesAllElementsByTab()
{
    MainWindow window;
    QVERIFY(open(window));
    for (int page = 0; page < window.pages()->count(); ++page) {
        window.pages()->setCurrentIndex(page);
        QList<QWidget *> expected;
        const QList<QWidget *> all = window.pages()->currentWidget()->findChildren<QWidget *>();
        std::copy_if(all.begin(), all.end(), std::back_inserter(expected), [](const QWidget *widget) {
            return widget->isVisible() && widget->isEnabled() && widget->focusPolicy() & Qt::TabFocus
                && !widget->focusProxy();
        });
        QVERIFY(!expected.isEmpty());
        QSet<QWidget *> reached;
        for (int i = 0; i < 2 * expected.size() + 10; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            reached.insert(QApplication::focusWidget());
        }
        for (QWidget *widget : qAsConst(expected)) {
            QVERIFY2(reached.contains(widget),
                     qPrintable(widget->objectName() + QLatin1String(widget->metaObject()->className())));
        }
    }
}

void WindowAccessTest::showsRowsWithoutRowsBelow()
{
    MainWindow window;
    QVERIFY(open(window));
    for (int page = 0; page < window.pages()->count(); ++page) {
        window.pages()->setCurrentIndex(page);
        const QList<QTreeView *> views = window.pages()->currentWidget()->findChildren<QTreeView *>();
        for (QTreeView *view : views) {
            const QModelIndex first = view->model()->index(0, 0);
            QVERIFY2(first.isValid(), qPrintable(view->objectName()));
            view->setCurrentIndex(first);
            // Expands everything, which would never end if the model allowed it.
            QTest::keyClick(view, Qt::Key_Asterisk);
            QVERIFY(!view->isExpanded(first));
        }
    }
}

void WindowAccessTest::drawsPicturesAsSharpAsTheScreen()
{
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR", text("1"));
    const IconTheme theme({text("user"), text("user-system"), text("group"), text("group-system")}, 192);
    MainWindow window;
    QVERIFY(open(window));
    for (const int page : {0, 1}) {
        window.pages()->setCurrentIndex(page);
        const auto *picture = part<QLabel>(*window.pages()->currentWidget(), "picture");
        QTRY_VERIFY_WITH_TIMEOUT(!picture->pixmap(Qt::ReturnByValue).isNull(), patience);
        const qreal ratio = picture->pixmap(Qt::ReturnByValue).devicePixelRatio();
        QCOMPARE(QString::number(ratio), scale);
    }
}

void WindowAccessTest::clipsNothing_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    const QSize usual = MainWindow().size();
    QTest::newRow("left to right") << usual << Qt::LeftToRight;
    QTest::newRow("right to left") << usual << Qt::RightToLeft;
    QTest::newRow("in little room") << QSize(640, 480) << Qt::LeftToRight;
}

void WindowAccessTest::clipsNothing()
{
    QFETCH(QSize, size);
    QFETCH(Qt::LayoutDirection, direction);

    QApplication::setLayoutDirection(direction);
    MainWindow window;
    QVERIFY(open(window));
    window.resize(size);
    for (int page = 0; page < window.pages()->count(); ++page) {
        window.pages()->setCurrentIndex(page);
        QCoreApplication::processEvents();
        QCOMPARE(clippedTexts(window).join(QLatin1Char('|')), QString());
    }
}

void WindowAccessTest::mirrors()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    MainWindow window;
    QVERIFY(open(window));
    QWidget *page = window.pages()->currentWidget();
    const QPoint origin = page->rect().topLeft();
    const int list = accountsView(window)->mapTo(page, origin).x();
    const int title = part<QLabel>(*page, "title")->mapTo(page, origin).x();
    QVERIFY(title < list);
}

void WindowAccessTest::isReadableInHighContrast()
{
    QApplication::setPalette(whiteOnBlack());
    const QString secret = text("/etc/security/limits.d/secret.conf");
    Sandbox::write(secret, QByteArray());
    QFile::setPermissions(secret, {}); // so that there are messages
    MainWindow window;
    QVERIFY(open(window));
    for (int page = 0; page < window.pages()->count(); ++page) {
        window.pages()->setCurrentIndex(page);
        QCoreApplication::processEvents();
        const QVector<const QWidget *> parts = visibleTextParts(window);
        QVERIFY(parts.size() >= 6);
        const QImage picture = window.grab().toImage();
        for (const QWidget *part : parts) {
            const QString name = part->parentWidget()->objectName() + part->property("text").toString();
            QVERIFY2(contrast(picture.copy(areaOf(*part))) >= 7, qPrintable(name));
        }
    }
}

QTEST_MAIN(WindowAccessTest)

#include "windowaccesstest.moc"
