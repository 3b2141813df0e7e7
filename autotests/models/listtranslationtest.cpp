/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "dialogparts.h"
#include "modellog.h"
#include "sandbox.h"

#include <GroupListModel>
#include <GroupSelectDialog>
#include <UserListModel>
#include <UserSelectDialog>

#include <KLocalizedString>

#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTreeView>

namespace
{
void setLanguage(const char *language)
{
    KLocalizedString::setLanguages({QString::fromLatin1(language)});
}

QStringList headers(const QAbstractItemModel &model)
{
    QStringList labels;
    for (int column = 0; column < model.columnCount(); ++column) {
        labels.append(model.headerData(column, Qt::Horizontal).toString());
    }
    return labels;
}

/** Every text of a dialog's form, including those that are only read out. */
QStringList formTexts(const QDialog &dialog)
{
    const auto *comboBox = dialog.findChild<QComboBox *>();
    const auto *lineEdit = part<QLineEdit>(dialog, "filterLineEdit");
    const auto *view = dialog.findChild<QTreeView *>();
    QStringList texts{dialog.windowTitle(),
                      view->accessibleName(),
                      lineEdit->placeholderText(),
                      lineEdit->accessibleName(),
                      comboBox->accessibleName()};
    for (int i = 0; i < comboBox->count(); ++i) {
        texts.append(comboBox->itemText(i));
    }
    return texts;
}

/** Compares the texts of two dialogs, one of which was constructed before the language became Polish. */
template<typename Dialog>
void compareTexts(const QStringList &plain, const QStringList &translated)
{
    const Dialog before;
    QCOMPARE(formTexts(before), plain);

    setLanguage("pl");
    QCOMPARE(formTexts(before), plain);
    const Dialog after;
    QCOMPARE(formTexts(after), translated);
}
}

class ListTranslationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void translatesModelsWhenAsked_data();
    void translatesModelsWhenAsked();
    void translatesUserDialogWhenMade();
    void translatesGroupDialogWhenMade();
};

void ListTranslationTest::initTestCase()
{
    KLocalizedString::addDomainLocaleDir("ormel_kcm_users", QStringLiteral(LOCALE_DIR));
    Sandbox::setAccounts("root:x:0:0::/:\nzoe:x:1000:1000::/:\n", "root:x:0:\nzoe:x:1000:\n");
}

void ListTranslationTest::init()
{
    setLanguage("en_US");
}

void ListTranslationTest::translatesModelsWhenAsked_data()
{
    QTest::addColumn<bool>("users");
    QTest::addColumn<QStringList>("plainHeaders");
    QTest::addColumn<QStringList>("translatedHeaders");

    QTest::newRow("users") << true << words("Name UID System") << words("Nazwa UID Systemowy");
    QTest::newRow("groups") << false << words("Name GID System") << words("Nazwa GID Systemowa");
}

void ListTranslationTest::translatesModelsWhenAsked()
{
    QFETCH(bool, users);
    QFETCH(QStringList, plainHeaders);
    QFETCH(QStringList, translatedHeaders);

    UserListModel userModel;
    userModel.setFilter(UserListModel::All);
    const GroupListModel groupModel;
    const QAbstractItemModel &model = users ? static_cast<const QAbstractItemModel &>(userModel) : groupModel;

    QCOMPARE(headers(model), plainHeaders);
    QCOMPARE(rowTexts(model), lines({"root | 0 | Yes", "zoe | 1000 | No"}));
    setLanguage("pl");
    QCOMPARE(headers(model), translatedHeaders);
    QCOMPARE(rowTexts(model), lines({"root | 0 | Tak", "zoe | 1000 | Nie"}));
}

void ListTranslationTest::translatesUserDialogWhenMade()
{
    compareTexts<UserSelectDialog>(lines({"Select Users",
                                          "Select Users",
                                          "Filter",
                                          "Filter",
                                          "Filter",
                                          "All",
                                          "Ordinary",
                                          "System",
                                          "Administrators",
                                          "Selected",
                                          "Unselected"}),
                                   lines({"Wybór użytkowników",
                                          "Wybór użytkowników",
                                          "Filtr",
                                          "Filtr",
                                          "Filtr",
                                          "Wszystkie",
                                          "Zwykłe",
                                          "Systemowe",
                                          "Administratorzy",
                                          "Zaznaczone",
                                          "Niezaznaczone"}));
}

void ListTranslationTest::translatesGroupDialogWhenMade()
{
    compareTexts<GroupSelectDialog>(lines({"Select Groups",
                                           "Select Groups",
                                           "Filter",
                                           "Filter",
                                           "Filter",
                                           "All",
                                           "Ordinary",
                                           "System",
                                           "Selected",
                                           "Unselected"}),
                                    lines({"Wybór grup",
                                           "Wybór grup",
                                           "Filtr",
                                           "Filtr",
                                           "Filtr",
                                           "Wszystkie",
                                           "Zwykłe",
                                           "Systemowe",
                                           "Zaznaczone",
                                           "Niezaznaczone"}));
}

QTEST_MAIN(ListTranslationTest)

#include "listtranslationtest.moc"
