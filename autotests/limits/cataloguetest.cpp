/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "describe.h"
#include "texts.h"

#include <LimitsParser>

#include <KLocalizedString>

#include <QTest>

#include <limits>
#include <type_traits>

#include <dlfcn.h>

namespace
{
constexpr int highest = std::numeric_limits<int>::max();

}

static_assert(!std::is_polymorphic_v<LimitsParser>);
static_assert(std::is_copy_constructible_v<LimitsParser> && std::is_copy_assignable_v<LimitsParser>);
static_assert(sizeof(LimitsParser) == sizeof(QList<LimitsParser::Field>));
static_assert(std::is_aggregate_v<LimitsParser::Field> && std::is_aggregate_v<LimitsParser::FieldDescriptor>);

class LimitsCatalogueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void describesItem_data();
    void describesItem();
    void hasDefaultsForUnknownItem_data();
    void hasDefaultsForUnknownItem();
    void ordersMembers();
    void numbersValueTypes();
    void listsItemsByName();
    void isOneObjectForLibraryAndCaller();

    void showsValue_data();
    void showsValue();
    void explainsType_data();
    void explainsType();
    void explainsTypesInLanguageOfFirstTime();
};

void LimitsCatalogueTest::describesItem_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<int>("minValue");
    QTest::addColumn<int>("maxValue");
    QTest::addColumn<int>("valueType");
    QTest::addColumn<bool>("hardOnly");
    QTest::addColumn<QString>("defaultType");
    QTest::addColumn<QString>("description");

    const auto addItem = [](const char *item,
                            int minValue,
                            int maxValue,
                            int valueType,
                            const char *defaultType,
                            const char *description) {
        const bool hardOnly = qstrcmp(defaultType, "hard") == 0;
        QTest::newRow(item) << text(item) << minValue << maxValue << valueType << hardOnly << text(defaultType)
                            << text(description);
    };
    addItem("core", -1, highest, 1, "soft", "Maximum core file size.");
    addItem("data", -1, highest, 1, "soft", "Maximum data size.");
    addItem("fsize", -1, highest, 1, "soft", "Maximum filesize.");
    addItem("memlock", -1, highest, 1, "soft", "Maximum locked-in-memory address space.");
    addItem("nofile", -1, highest, 3, "soft", "Maximum number of open file descriptors.");
    addItem("stack", -1, highest, 1, "soft", "Maximum stack size.");
    addItem("cpu", -1, highest, 2, "soft", "Maximum CPU time.");
    addItem("nproc", -1, highest, 3, "soft", "Maximum number of processes.");
    addItem("as", -1, highest, 1, "soft", "Address space limit.");
    addItem("maxlogins", -1, highest, 3, "hard", "Maximum number of logins for this user.");
    addItem("maxsyslogins", -1, highest, 3, "hard", "Maximum number of all logins on system.");
    addItem("nonewprivs", 0, 1, 4, "hard", "Disable acquiring new privileges by invoking prctl(PR_SET_NO_NEW_PRIVS).");
    addItem("priority", -20, 19, 3, "soft", "The priority to run user process with.");
    addItem("locks", -1, highest, 3, "soft", "Maximum locked files.");
    addItem("sigpending", -1, highest, 3, "soft", "Maximum number of pending signals.");
    addItem("msgqueue", -1, highest, 0, "soft", "Maximum memory used by POSIX message queues.");
    addItem("nice", -20, 19, 3, "soft", "Maximum nice priority allowed to raise to.");
    addItem("rtprio", -1, highest, 3, "soft", "Maximum realtime priority allowed for non-privileged processes.");
    addItem("chroot", -1, -1, 6, "soft", "The directory to chroot the user to.");
}

void LimitsCatalogueTest::describesItem()
{
    QFETCH(QString, item);
    QFETCH(int, minValue);
    QFETCH(int, maxValue);
    QFETCH(int, valueType);
    QFETCH(bool, hardOnly);
    QFETCH(QString, defaultType);
    QFETCH(QString, description);

    const LimitsParser::FieldDescriptor descriptor = LimitsParser::fieldDescriptor(item);
    QCOMPARE(descriptor.minValue, minValue);
    QCOMPARE(descriptor.maxValue, maxValue);
    QCOMPARE(descriptor.valueType, valueType);
    QCOMPARE(descriptor.hardOnly, hardOnly);
    QCOMPARE(descriptor.defaultType, defaultType);
    QCOMPARE(descriptor.description, description);

    QCOMPARE(describe(LimitsParser::m_fieldDescriptionsMap.value(item)), describe(descriptor));
    QCOMPARE(LimitsParser::valueType(item), valueType);
    QCOMPARE(LimitsParser::itemToolTip(item), description);
}

void LimitsCatalogueTest::hasDefaultsForUnknownItem_data()
{
    QTest::addColumn<QString>("item");

    QTest::newRow("bogus") << QStringLiteral("bogus");
    QTest::newRow("Core") << QStringLiteral("Core");
    QTest::newRow("NPROC") << QStringLiteral("NPROC");
    QTest::newRow("cor") << QStringLiteral("cor");
    QTest::newRow("core with a space") << QStringLiteral("core ");
    QTest::newRow("empty") << text("");
    QTest::newRow("null") << QString();
}

void LimitsCatalogueTest::hasDefaultsForUnknownItem()
{
    QFETCH(QString, item);

    const LimitsParser::FieldDescriptor descriptor = LimitsParser::fieldDescriptor(item);
    QCOMPARE(describe(descriptor), QStringLiteral("-1 | -1 | -1 | any type | null | null"));
    QCOMPARE(describe(descriptor), describe(LimitsParser::FieldDescriptor()));
    QCOMPARE(LimitsParser::valueType(item), -1);
    QCOMPARE(LimitsParser::itemToolTip(item), item);
    QCOMPARE(LimitsParser::itemToolTip(item).isNull(), item.isNull());
    QCOMPARE(LimitsParser::m_fieldDescriptionsMap.size(), 19);
}

void LimitsCatalogueTest::ordersMembers()
{
    const LimitsParser::FieldDescriptor descriptor{1, 2, 3, true, QStringLiteral("a"), QStringLiteral("b")};
    QCOMPARE(describe(descriptor), QStringLiteral("1 | 2 | 3 | hard only | a | b"));
    const LimitsParser::Field rule{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), 1, 2};
    QCOMPARE(describe(rule), QStringLiteral("a | b | c | int 1 | 2"));
    QCOMPARE(describe(LimitsParser::Field()), QStringLiteral("null | null | null | null | -1"));
}

void LimitsCatalogueTest::numbersValueTypes()
{
    QCOMPARE(int(LimitsParser::Unknown), -1);
    QCOMPARE(int(LimitsParser::Bytes), 0);
    QCOMPARE(int(LimitsParser::KiloBytes), 1);
    QCOMPARE(int(LimitsParser::Minutes), 2);
    QCOMPARE(int(LimitsParser::Number), 3);
    QCOMPARE(int(LimitsParser::Boolean), 4);
    QCOMPARE(int(LimitsParser::Path), 6);
}

void LimitsCatalogueTest::listsItemsByName()
{
    const QString items = QStringLiteral("as chroot core cpu data fsize locks maxlogins maxsyslogins memlock "
                                         "msgqueue nice nofile nonewprivs nproc priority rtprio sigpending stack");
    QCOMPARE(LimitsParser::availableItems().join(QLatin1Char(' ')), items);
    QCOMPARE(LimitsParser::m_fieldDescriptionsMap.keys(), LimitsParser::availableItems());
}

void LimitsCatalogueTest::isOneObjectForLibraryAndCaller()
{
    void *library = dlopen("libormel-users-qt.so.1", RTLD_NOLOAD | RTLD_NOW);
    QVERIFY2(library, dlerror());
    const void *inLibrary = dlsym(library, "_ZN12LimitsParser22m_fieldDescriptionsMapE");
    QCOMPARE(inLibrary, static_cast<const void *>(&LimitsParser::m_fieldDescriptionsMap));
    Dl_info owner{};
    QVERIFY(dladdr(inLibrary, &owner));
    QVERIFY(QByteArray(owner.dli_fname).contains("libormel-users-qt"));
    dlclose(library);

    const auto core = LimitsParser::m_fieldDescriptionsMap.constFind(QStringLiteral("core"));
    const QString handedOut = LimitsParser::fieldDescriptor(QStringLiteral("core")).description;
    QCOMPARE(handedOut.constData(), core->description.constData());
}

void LimitsCatalogueTest::showsValue_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");

    const auto addValue = [](const char *item, const QVariant &value, const char *expected) {
        QTest::addRow("%s of %s", qPrintable(describe(value)), item) << text(item) << value << text(expected);
    };
    addValue("msgqueue", 1024, "1024 Bytes");
    addValue("msgqueue", 819200, "819200 Bytes");
    addValue("msgqueue", -1, "-1 Bytes");
    addValue("memlock", 1024, "1024 KB");
    addValue("memlock", highest, "2147483647 KB");
    addValue("core", 0, "0 KB");
    addValue("core", -1, "-1 KB");
    addValue("core", text("text"), "0 KB");
    addValue("core", text("/srv"), "0 KB");
    addValue("core", text("12"), "12 KB");
    addValue("core", QVariant(), "0 KB");
    addValue("cpu", 30, "30 Minutes");
    addValue("cpu", 1, "1 Minutes");
    addValue("cpu", 1440000, "1440000 Minutes");
    addValue("cpu", text("%1"), "0 Minutes");
    addValue("nproc", -1, "-1");
    addValue("nproc", 4096, "4096");
    addValue("nproc", text("many"), "many");
    addValue("nproc", QVariant(), "");
    addValue("nonewprivs", 1, "Enabled");
    addValue("nonewprivs", text("1"), "Enabled");
    addValue("nonewprivs", 0, "Disabled");
    addValue("nonewprivs", 2, "Disabled");
    addValue("nonewprivs", -1, "Disabled");
    addValue("nonewprivs", text("yes"), "Disabled");
    addValue("nonewprivs", QVariant(), "Disabled");
    addValue("chroot", text("/srv/jail"), "/srv/jail");
    addValue("chroot", 0, "0");
    addValue("bogus", 5, "5");
    addValue("bogus", text("%1 KB"), "%1 KB");
}

void LimitsCatalogueTest::showsValue()
{
    QFETCH(QString, item);
    QFETCH(QVariant, value);
    QFETCH(QString, expected);

    QCOMPARE(LimitsParser::valueToString(value, item), expected);
}

void LimitsCatalogueTest::explainsType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("expected");

    QTest::newRow("soft") << QStringLiteral("soft")
                          << QStringLiteral("This is the soft resource limit.<br>"
                                            "This type of limits is used by default and can be changed by the user.");
    QTest::newRow("hard") << QStringLiteral("hard")
                          << QStringLiteral(
                                 "This is the hard resource limit.<br>"
                                 "The user cannot raise his requirement of system resource above this value.");
    QTest::newRow("-") << QStringLiteral("-")
                       << QStringLiteral("Enforcing both soft and hard resource limits together.<br>This means, that "
                                         "this limit is used by default and cannot be changed upward by user.");
    const char *const others[] = {"both", "Soft", "soft ", "--", "", "%1", "<br>"};
    for (const char *other : others) {
        QTest::addRow("other: '%s'", other) << text(other) << text(other);
    }
}

void LimitsCatalogueTest::explainsType()
{
    QFETCH(QString, type);
    QFETCH(QString, expected);

    QCOMPARE(LimitsParser::typeToolTip(type), expected);
    QCOMPARE(LimitsParser::typeToolTip(type), expected);
}

void LimitsCatalogueTest::explainsTypesInLanguageOfFirstTime()
{
    const QString soft = QStringLiteral("soft");
    const QString explanation = LimitsParser::typeToolTip(soft);
    KLocalizedString::addDomainLocaleDir("ormel_kcm_users", QStringLiteral(LOCALE_DIR));
    KLocalizedString::setLanguages({QStringLiteral("pl")});
    QCOMPARE(LimitsParser::domainToolTip(QStringLiteral("*")), QStringLiteral("Wszyscy użytkownicy"));
    QCOMPARE(LimitsParser::typeToolTip(soft), explanation);
}

QTEST_GUILESS_MAIN(LimitsCatalogueTest)

#include "cataloguetest.moc"
