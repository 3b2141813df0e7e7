/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "icontheme.h"
#include "sandbox.h"

#include <GroupListModel>
#include <UserListModel>

#include <QSet>
#include <QStandardPaths>
#include <QTest>

#include <memory>

/** The installed icons below XDG_DATA_DIRS, with a theme that has none of them. */
class InstalledIconsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void hasEverySize_data();
    void hasEverySize();
    void looksLikeDrawing_data();
    void looksLikeDrawing();
    void comesWithDrawing_data();
    void comesWithDrawing();
    void showsIconInEveryRow();

private:
    static void addNames();

    std::unique_ptr<IconTheme> m_theme;
};

void InstalledIconsTest::initTestCase()
{
    // A desktop searches these paths, the offscreen platform does not.
    const QStringList installed = QStandardPaths::locateAll(
        QStandardPaths::GenericDataLocation, QStringLiteral("icons"), QStandardPaths::LocateDirectory);
    m_theme = std::make_unique<IconTheme>(QStringList(QStringLiteral("something-else")));
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() + installed);
    QVERIFY(QIcon::hasThemeIcon(QStringLiteral("something-else")));
}

void InstalledIconsTest::cleanupTestCase()
{
    m_theme.reset();
}

void InstalledIconsTest::addNames()
{
    QTest::addColumn<QString>("name");

    for (const char *name : {"user", "user-system", "group", "group-system", "ormel-users"}) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

void InstalledIconsTest::hasEverySize_data()
{
    addNames();
}

void InstalledIconsTest::hasEverySize()
{
    QFETCH(QString, name);

    const QIcon icon = QIcon::fromTheme(name);
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QVERIFY2(icon.availableSizes().contains(QSize(size, size)), qPrintable(QString::number(size)));
        QCOMPARE(icon.pixmap(size).size(), QSize(size, size));
    }
}

void InstalledIconsTest::looksLikeDrawing_data()
{
    addNames();
}

void InstalledIconsTest::looksLikeDrawing()
{
    QFETCH(QString, name);

    for (const int size : {16, 256}) {
        const QImage image = QIcon::fromTheme(name).pixmap(size).toImage();
        QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
        QCOMPARE(qAlpha(image.pixel(size / 2, size * 3 / 4)), 255);
    }
}

void InstalledIconsTest::comesWithDrawing_data()
{
    addNames();
}

void InstalledIconsTest::comesWithDrawing()
{
    QFETCH(QString, name);

    const QString context =
        name.startsWith(QLatin1String("ormel")) ? QStringLiteral("apps") : QStringLiteral("actions");
    const QString path = QStringLiteral("%1/share/icons/hicolor/scalable/%2/%3.svg")
                             .arg(qEnvironmentVariable("INSTALLED_PREFIX"), context, name);
    QVERIFY2(!QImage(path).isNull(), qPrintable(path));
}

void InstalledIconsTest::showsIconInEveryRow()
{
    Sandbox::setAccounts("root:x:0:0::/root:/bin/sh\nalice:x:1000:1000::/:\n", "root:x:0:\nalice:x:1000:\n");
    UserListModel users;
    users.setFilter(UserListModel::All);
    users.setNewUserName(QStringLiteral("bob"));
    QCOMPARE(users.rowCount(), 3);
    GroupListModel groups;
    groups.setNewGroupName(QStringLiteral("bob"));
    QCOMPARE(groups.rowCount(), 3);
    for (const QAbstractItemModel *model :
         {static_cast<QAbstractItemModel *>(&users), static_cast<QAbstractItemModel *>(&groups)}) {
        QSet<QString> names;
        for (int row = 0; row < model->rowCount(); ++row) {
            const auto icon = model->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
            QVERIFY(!icon.pixmap(16).isNull());
            names.insert(icon.name());
        }
        QCOMPARE(names.size(), 2);
    }
}

QTEST_MAIN(InstalledIconsTest)

#include "installediconstest.moc"
