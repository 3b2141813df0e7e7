/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "about.h"
#include "accountfixtures.h"
#include "dialogparts.h"
#include "limitsfixtures.h"
#include "mainwindow.h"
#include "orderofsight.h"
#include "pageparts.h"
#include "recordview.h"
#include "windowfixture.h"
#include "windowparts.h"

#include <KLocalizedString>
#include <KSqueezedTextLabel>

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>

#include <algorithm>
#include <memory>

namespace
{
/** The mnemonics of @p actions; an empty text where one has none. */
QStringList actionMnemonics(const QList<QAction *> &actions)
{
    QStringList keys;
    for (const QAction *action : actions) {
        if (!action->isSeparator()) {
            keys.append(QKeySequence::mnemonic(action->text()).toString());
        }
    }
    return keys;
}

QStringList repeated(QStringList keys)
{
    const QStringList all = keys;
    keys.removeDuplicates();
    QStringList rest = all;
    for (const QString &key : qAsConst(keys)) {
        rest.removeOne(key);
    }
    return rest;
}

void useLanguage(const QString &language)
{
    KLocalizedString::setLanguages({language});
    QApplication::setLayoutDirection(language == QLatin1String("ar") ? Qt::RightToLeft : Qt::LeftToRight);
}

/** A row of a view as it is seen in Egypt, its cells joined by bars. */
QString seenRow(const QAbstractItemView &view, int row)
{
    QLocale locale(QLocale::Arabic, QLocale::Egypt);
    locale.setNumberOptions(QLocale::OmitGroupSeparator); // as views do
    QStringList cells;
    for (int column = 0; column < view.model()->columnCount(); ++column) {
        const QModelIndex index = view.model()->index(row, column);
        const auto *delegate = qobject_cast<const QStyledItemDelegate *>(view.itemDelegate(index));
        cells.append(inOrderOfSight(delegate->displayText(index.data(), locale), view.layoutDirection()));
    }
    return cells.join(QLatin1Char('|'));
}

/** Whether what is drawn on a widget is nearer to its right edge than to its left one. */
bool drawsAtRight(QWidget &widget)
{
    const QImage image = widget.grab().toImage();
    const auto isEmpty = [&image](int x) {
        const QRgb background = image.pixel(image.width() / 2, image.height() - 2);
        for (int y = 2; y < image.height() - 2; ++y) {
            if (image.pixel(x, y) != background) {
                return false;
            }
        }
        return true;
    };
    int left = 2;
    int right = image.width() - 3;
    while (left < right && isEmpty(left)) {
        ++left;
    }
    while (left < right && isEmpty(right)) {
        --right;
    }
    return left < right && image.width() - right < left;
}
}

class WindowLanguagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void hasRoomAndMnemonics_data();
    void hasRoomAndMnemonics();
    void keepsOrderOfSigns();
    void beginsLinesAtTheRight();
    void cleanup();
};

void WindowLanguagesTest::initTestCase()
{
    for (const char *domain : {"ormel-users", "ormel_kcm_users"}) {
        KLocalizedString::addDomainLocaleDir(domain, QStringLiteral(LOCALE_DIR));
    }
    About::setApplicationData();
    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/bash\nada:x:1000:50:Ada:/home/ada:/bin/sh\n",
                         "root:x:0:\normel-admin:x:27:ada\nstaff:x:50:\n");
}

void WindowLanguagesTest::init()
{
    clearLimits();
    Sandbox::write(limitsPath(), "* soft core 0\n* both nproc some\n");
}

void WindowLanguagesTest::hasRoomAndMnemonics_data()
{
    QTest::addColumn<QString>("title");

    QTest::newRow("ar") << QStringLiteral("المستخدمون");
    QTest::newRow("de") << QStringLiteral("Benutzer");
    QTest::newRow("es") << QStringLiteral("Usuarios");
    QTest::newRow("fr") << QStringLiteral("Utilisateurs");
    QTest::newRow("ja") << QStringLiteral("ユーザー");
    QTest::newRow("pl") << QStringLiteral("Użytkownicy");
    QTest::newRow("pt_BR") << QStringLiteral("Usuários");
    QTest::newRow("ru") << QStringLiteral("Пользователи");
    QTest::newRow("uk") << QStringLiteral("Користувачі");
    QTest::newRow("zh_CN") << QStringLiteral("用户");
}

void WindowLanguagesTest::hasRoomAndMnemonics()
{
    QFETCH(QString, title);

    const QString language = QString::fromLatin1(QTest::currentDataTag());
    useLanguage(language);
    MainWindow window;
    window.show();
    QVERIFY(waitUntilRead(window));
    QTabWidget *pages = window.pages();
    QCOMPARE(pages->tabText(0), title);

    const QList<QAction *> menus = window.menuBar()->actions();
    QStringList windowKeys = actionMnemonics(menus);
    QVERIFY(!windowKeys.contains(QString()));
    const QList<QAction *> viewActions = menus.at(2)->menu()->actions();
    for (const QAction *action : viewActions) {
        windowKeys.append(action->shortcut().toString());
    }
    windowKeys.removeAll(QString());
    QVERIFY(windowKeys.contains(QStringLiteral("Alt+5")));
    for (int page = 0; page < pages->count(); ++page) {
        pages->setCurrentIndex(page);
        QCoreApplication::processEvents();
        const QStringList pageKeys = mnemonics(*pages->currentWidget());
        QCOMPARE(repeated(windowKeys + pageKeys).join(QLatin1Char(' ')), QString());
        QCOMPARE(clippedTexts(window).join(QLatin1Char('|')), QString());
    }
    for (const QAction *menu : menus) {
        const QStringList keys = actionMnemonics(menu->menu()->actions());
        QVERIFY(!keys.contains(QString()));
        QCOMPARE(repeated(keys), QStringList());
    }
}

void WindowLanguagesTest::keepsOrderOfSigns()
{
    Sandbox::write(limitsPath(),
                   "ada - cpu 120\n* - memlock unlimited\nada - chroot /\n@staff - nice -5\n"
                   "* hard rtime 5\n");
    useLanguage(QStringLiteral("ar"));
    MainWindow window;
    window.show();
    QVERIFY(waitUntilRead(window));
    QVERIFY(waitUntilShown(window));
    QCOMPARE(seenRow(*accountsView(window), 0).section(QLatin1Char('|'), 0, 2), QStringLiteral("ada|Ada|1000"));
    const auto *limits = part<QAbstractItemView>(*window.pages()->currentWidget(), "limitsTable");
    QStringList rows;
    for (int row = 0; row < limits->model()->rowCount(); ++row) {
        rows.append(seenRow(*limits, row).section(QLatin1Char('|'), 0, 3));
    }
    const QString place = QStringLiteral("limits.conf:");
    QCOMPARE(rows,
             QStringList({
                 QStringLiteral("chroot|/|/|ada ") + place + QLatin1Char('3'),
                 QStringLiteral("cpu|120|120|ada ") + place + QLatin1Char('1'),
                 QStringLiteral("memlock|unlimited|unlimited|* ") + place + QLatin1Char('2'),
                 QStringLiteral("nice|-5|-5|@staff ") + place + QLatin1Char('4'),
             }));
    QCOMPARE(seenRow(*part<QAbstractItemView>(window, "linesTable"), 4).section(QLatin1Char('|'), 0, 1),
             QStringLiteral("/etc/security/limits.conf:5|* hard rtime 5"));
}

void WindowLanguagesTest::beginsLinesAtTheRight()
{
    useLanguage(QStringLiteral("ar"));
    MainWindow window;
    window.show();
    QVERIFY(waitUntilRead(window));
    const auto lines = window.pages()->currentWidget()->findChildren<KSqueezedTextLabel *>();
    const auto home = std::find_if(lines.begin(), lines.end(), [](const KSqueezedTextLabel *line) {
        return line->fullText() == QLatin1String("/home/ada");
    });
    QVERIFY(home != lines.end());
    QVERIFY(drawsAtRight(**home));

    const std::unique_ptr<QMessageBox> about(About::createDialog());
    about->resize(800, 600);
    about->show();
    for (const char *name : {"qt_msgbox_label", "qt_msgbox_informativelabel"}) {
        auto *label = part<QLabel>(*about, name);
        label->setText(QStringLiteral("Ormel"));
        QVERIFY2(drawsAtRight(*label), name);
    }
    for (const char *name : {"remarks", "noLimits", "lineMeaning", "lineProblem", "problemText", "problemMeaning"}) {
        auto *label = part<QLabel>(window, name);
        label->setText(QStringLiteral("Ormel"));
        label->resize(400, 60);
        QVERIFY2(drawsAtRight(*label), name);
    }
}

void WindowLanguagesTest::cleanup()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

QTEST_MAIN(WindowLanguagesTest)

#include "windowlanguagestest.moc"
