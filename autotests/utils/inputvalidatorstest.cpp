/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "messagerecorder.h"
#include "sandbox.h"

#include <UserUtils>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpressionValidator>
#include <QTest>

#include <memory>
#include <type_traits>

Q_DECLARE_METATYPE(QValidator::State)

static_assert(!std::is_default_constructible_v<UserUtils> && !std::is_destructible_v<UserUtils>);

namespace
{
using Factory = QValidator *(*)(QObject *);

constexpr QValidator::State Accepted = QValidator::Acceptable;
constexpr QValidator::State Unfinished = QValidator::Intermediate;
constexpr QValidator::State Rejected = QValidator::Invalid;

QString adduserConf()
{
    return QStringLiteral("/etc/adduser.conf");
}

QString fallback()
{
    return QStringLiteral("[a-z][a-z0-9\\_\\-]*");
}

QString letters(int count)
{
    return QStringLiteral("a").repeated(count);
}

QValidator::State check(Factory create, const QString &text)
{
    const std::unique_ptr<QValidator> validator(create(nullptr));
    QString input = text;
    int pos = 0;
    return validator->validate(input, pos);
}

QRegularExpression expressionOf(const QValidator *validator)
{
    const auto *expression = qobject_cast<const QRegularExpressionValidator *>(validator);
    return expression ? expression->regularExpression() : QRegularExpression(QStringLiteral("no regular expression"));
}

QString patternOf(const QValidator *validator)
{
    return expressionOf(validator).pattern();
}

/** The pattern of a new validator for user names. */
QString namePattern()
{
    const std::unique_ptr<QValidator> validator(UserUtils::createUserNameValidator(nullptr));
    return patternOf(validator.get());
}

struct Check {
    const char *text;
    QValidator::State state;
};

template<int count>
void addRows(const Check (&checks)[count])
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("state");
    for (const Check &check : checks) {
        QTest::addRow("'%s'", check.text) << QString::fromUtf8(check.text) << check.state;
    }
}

void addNameFactories()
{
    QTest::addColumn<Factory>("create");
    QTest::newRow("user name") << Factory(UserUtils::createUserNameValidator);
    QTest::newRow("group name") << Factory(UserUtils::createGroupNameValidator);
}

void addFactories()
{
    addNameFactories();
    QTest::newRow("GECOS") << Factory(UserUtils::createGecosValidator);
}
}

Q_DECLARE_METATYPE(Factory)

class InputValidatorsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void checksUserNamesWithoutConfiguration_data();
    void checksUserNamesWithoutConfiguration();
    void takesPatternFromConfiguration_data();
    void takesPatternFromConfiguration();
    void takesNothingFromUnreadableConfiguration();
    void takesNothingFromDirectory();
    void takesPatternFromShippedConfiguration();
    void readsConfigurationForEachValidator();
    void matchesWholeNameWithConfiguredPattern_data();
    void matchesWholeNameWithConfiguredPattern();
    void acceptsNothingWithInvalidPattern();
    void takesPatternThatIsValidInsideAnchorsOnly();

    void givesUpPatternsThatBacktrackWithoutEnd_data();
    void givesUpPatternsThatBacktrackWithoutEnd();

    void checksGroupNames_data();
    void checksGroupNames();
    void checksGecos_data();
    void checksGecos();
    void checksLongGecos();

    void limitsNames_data();
    void limitsNames();
    void limitsNamesThatCouldBecomeValid();
    void countsUtf16Units();
    void leavesTooLongInputAlone_data();
    void leavesTooLongInputAlone();
    void movesPositionLikeTheToolkit_data();
    void movesPositionLikeTheToolkit();
    void stopsTypingAtTheLimit_data();
    void stopsTypingAtTheLimit();

    void createsOneForEachCall_data();
    void createsOneForEachCall();
    void matchesWithDefaultOptions_data();
    void matchesWithDefaultOptions();
    void isOwnedByParent_data();
    void isOwnedByParent();
    void hasNoMetaObjectOfItsOwn_data();
    void hasNoMetaObjectOfItsOwn();

private:
    QByteArray m_shippedConfiguration;
};

void InputValidatorsTest::initTestCase()
{
    QFile file(adduserConf());
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_shippedConfiguration = file.readAll();
}

void InputValidatorsTest::init()
{
    Sandbox::remove(adduserConf());
}

void InputValidatorsTest::checksUserNamesWithoutConfiguration_data()
{
    addRows({
        {"user1", Accepted},
        {"a", Accepted},
        {"a-b_c9-", Accepted},
        {"", Unfinished},
        {"_user", Rejected},
        {"user$", Rejected},
        {"1user", Rejected},
        {"-user", Rejected},
        {"User", Rejected},
        {"usEr", Rejected},
        {"us er", Rejected},
        {" user", Rejected},
        {"user ", Rejected},
        {"us.er", Rejected},
        {"us\\er", Rejected},
        {"ren\u00e9", Rejected},
    });
}

void InputValidatorsTest::checksUserNamesWithoutConfiguration()
{
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);

    MessageRecorder recorder;
    QCOMPARE(check(UserUtils::createUserNameValidator, text), state);
    QCOMPARE(namePattern(), fallback());
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void InputValidatorsTest::takesPatternFromConfiguration_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("pattern");

    const auto add = [](const char *row, const QByteArray &content, const QString &pattern) {
        QTest::newRow(row) << content << pattern;
    };
    const QString taken = QStringLiteral("[a-z]+");

    add("quoted", "NAME_REGEX=\"[a-z]+\"\n", taken);
    add("among other lines", "# comment\nDSHELL=/bin/sh\nNAME_REGEX=\"[a-z]+\"\nQUOTAUSER=\"\"\n", taken);
    add("without line end", "NAME_REGEX=\"[a-z]+\"", taken);
    add("CRLF line ends", "DSHELL=/bin/sh\r\nNAME_REGEX=\"[a-z]+\"\r\nQUOTAUSER=\"\"\r\n", taken);
    add("text after the quotes", "NAME_REGEX=\"[a-z]+\" # letters\n", taken);
    add("text before the quotes", "NAME_REGEX= some\"[a-z]+\"\n", taken);
    add("blanks in the quotes", "NAME_REGEX=\" [a-z]+ \"\n", QStringLiteral(" [a-z]+ "));
    add("single quotes in the quotes", "NAME_REGEX=\"'[a-z]+'\"\n", QStringLiteral("'[a-z]+'"));
    add("backslashes", "NAME_REGEX=\"^[a-z]*\\$?$\"\n", QStringLiteral("^[a-z]*\\$?$"));
    add("Latin-1", "NAME_REGEX=\"[a-z\xe9]+\"\n", QStringLiteral("[a-z\u00e9]+"));
    add("UTF-8", "NAME_REGEX=\"[a-z\xc3\xa9]+\"\n", QStringLiteral("[a-z\u00c3\u00a9]+"));
    add("null character",
        QByteArray("NAME_REGEX=\"a\0b\"\n", 17),
        QLatin1Char('a') + QString(QChar(QChar::Null)) + QLatin1Char('b'));
    add("long line", "NAME_REGEX=\"" + QByteArray(100000, 'a') + "\"\n", letters(100000));

    add("empty file", "", fallback());
    add("indented by a blank", " NAME_REGEX=\"[a-z]+\"\n", fallback());
    add("indented by a tab", "\tNAME_REGEX=\"[a-z]+\"\n", fallback());
    add("commented out", "#NAME_REGEX=\"[a-z]+\"\n", fallback());
    add("lower case", "name_regex=\"[a-z]+\"\n", fallback());
    add("blank before the sign", "NAME_REGEX =\"[a-z]+\"\n", fallback());
    add("longer keyword", "SYS_NAME_REGEX=\"[a-z]+\"\n", fallback());
    add("byte order mark", "\xef\xbb\xbfNAME_REGEX=\"[a-z]+\"\n", fallback());
    add("keyword alone", "NAME_REGEX\n", fallback());
    add("nothing after the sign", "NAME_REGEX=\n", fallback());
    add("no quotes", "NAME_REGEX=[a-z]+\n", fallback());
    add("single quotes", "NAME_REGEX='[a-z]+'\n", fallback());
    add("one quote", "NAME_REGEX=\"[a-z]+\n", fallback());
    add("three quotes", "NAME_REGEX=\"[a-z]+\"\"\n", fallback());
    add("four quotes", "NAME_REGEX=\"[a-z]+\"\"[0-9]\"\n", fallback());
    add("sign in the value", "NAME_REGEX=\"[a-z=]+\"\n", fallback());
    add("sign after the value", "NAME_REGEX=\"[a-z]+\" # a=b\n", fallback());
    add("value over two lines", "NAME_REGEX=\"[a-z]\n+\"\n", fallback());
    add("nothing in the quotes", "NAME_REGEX=\"\"\n", fallback());

    add("last of two", "NAME_REGEX=\"[0-9]+\"\nNAME_REGEX=\"[a-z]+\"\n", taken);
    add("before an unusable line", "NAME_REGEX=\"[a-z]+\"\nNAME_REGEX=[0-9]+\n", taken);
    add("after an unusable line", "NAME_REGEX=[0-9]+\nNAME_REGEX=\"[a-z]+\"\n", taken);
    add("reset by an empty one", "NAME_REGEX=\"[a-z]+\"\nNAME_REGEX=\"\"\n", fallback());
    add("after an empty one", "NAME_REGEX=\"\"\nNAME_REGEX=\"[a-z]+\"\n", taken);
}

void InputValidatorsTest::takesPatternFromConfiguration()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, pattern);

    Sandbox::write(adduserConf(), content);
    MessageRecorder recorder;
    QCOMPARE(namePattern(), pattern);
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void InputValidatorsTest::takesNothingFromUnreadableConfiguration()
{
    Sandbox::write(adduserConf(), "NAME_REGEX=\"[a-z]+\"\n");
    QVERIFY(QFile::setPermissions(adduserConf(), {}));
    MessageRecorder recorder;
    QCOMPARE(namePattern(), fallback());
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void InputValidatorsTest::takesNothingFromDirectory()
{
    QVERIFY(QDir().mkdir(adduserConf()));
    MessageRecorder recorder;
    const QString pattern = namePattern();
    QVERIFY(QDir().rmdir(adduserConf()));
    QCOMPARE(pattern, fallback());
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void InputValidatorsTest::takesPatternFromShippedConfiguration()
{
    QByteArray configuration = m_shippedConfiguration;
    Sandbox::write(adduserConf(), configuration);
    QCOMPARE(namePattern(), fallback());

    // The package ships the line as a comment.
    QVERIFY(configuration.contains("\n#NAME_REGEX=\""));
    Sandbox::write(adduserConf(), configuration.replace("\n#NAME_REGEX=\"", "\nNAME_REGEX=\""));
    QCOMPARE(namePattern(), QStringLiteral("^[a-z][-a-z0-9_]*\\$?$"));
    QCOMPARE(check(UserUtils::createUserNameValidator, QStringLiteral("machine$")), Accepted);
    QCOMPARE(check(UserUtils::createUserNameValidator, QStringLiteral("_user")), Rejected);
}

void InputValidatorsTest::readsConfigurationForEachValidator()
{
    Sandbox::write(adduserConf(), "NAME_REGEX=\"[0-9]+\"\n");
    const std::unique_ptr<QValidator> digits(UserUtils::createUserNameValidator(nullptr));
    Sandbox::write(adduserConf(), "NAME_REGEX=\"[A-Z]+\"\n");
    const std::unique_ptr<QValidator> capitals(UserUtils::createUserNameValidator(nullptr));
    Sandbox::remove(adduserConf());

    QCOMPARE(patternOf(digits.get()), QStringLiteral("[0-9]+"));
    QCOMPARE(patternOf(capitals.get()), QStringLiteral("[A-Z]+"));
    QCOMPARE(namePattern(), fallback());
}

void InputValidatorsTest::matchesWholeNameWithConfiguredPattern_data()
{
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("state");

    const auto add = [](const char *pattern, const QString &text, QValidator::State state) {
        QTest::addRow("%s with %s", qPrintable(text), qPrintable(QString::fromLatin1(pattern)))
            << QByteArray(pattern) << text << state;
    };
    add("[a-z]+", QStringLiteral("abc"), Accepted);
    add("[a-z]+", QStringLiteral("abc1"), Rejected);
    add("[a-z]+", QStringLiteral("1abc"), Rejected);
    add("^[a-z]+$", QStringLiteral("abc"), Accepted);
    add("a|bc", QStringLiteral("bc"), Accepted);
    add("a|bc", QStringLiteral("b"), Unfinished);
    add("a|bc", QStringLiteral("abc"), Rejected);
    add("[a-z]+-[0-9]{2}", QStringLiteral("abc"), Unfinished);
    add("[a-z]+-[0-9]{2}", QStringLiteral("abc-1"), Unfinished);
    add("[a-z]+-[0-9]{2}", QStringLiteral("abc-12"), Accepted);
    add("[a-z]+-[0-9]{2}", QStringLiteral("abc-123"), Rejected);
    add("ren\xe9", QStringLiteral("ren\u00e9"), Accepted);
    add("\\w+", QStringLiteral("\u00e9"), Rejected);
    add("(?i)user", QStringLiteral("UsEr"), Accepted);
    add(".*", QStringLiteral("Any Name: 1"), Accepted);
}

void InputValidatorsTest::matchesWholeNameWithConfiguredPattern()
{
    QFETCH(QByteArray, pattern);
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);

    Sandbox::write(adduserConf(), "NAME_REGEX=\"" + pattern + "\"\n");
    QCOMPARE(check(UserUtils::createUserNameValidator, text), state);
}

void InputValidatorsTest::acceptsNothingWithInvalidPattern()
{
    Sandbox::write(adduserConf(), "NAME_REGEX=\"[a-z\"\n");
    QCOMPARE(namePattern(), QStringLiteral("[a-z"));
    for (const char *text : {"user", "[a-z", "a"}) {
        QTest::ignoreMessage(QtWarningMsg,
                             "QRegularExpressionPrivate::doMatch(): called on an invalid QRegularExpression object");
        QCOMPARE(check(UserUtils::createUserNameValidator, QLatin1String(text)), Rejected);
    }
}

void InputValidatorsTest::takesPatternThatIsValidInsideAnchorsOnly()
{
    // The toolkit puts the pattern into a group, which this one closes and opens again.
    Sandbox::write(adduserConf(), "NAME_REGEX=\"[a-z]+)(?:[0-9]\"\n");
    QCOMPARE(check(UserUtils::createUserNameValidator, QStringLiteral("user1")), Accepted);
    QCOMPARE(check(UserUtils::createUserNameValidator, QStringLiteral("user")), Unfinished);
    QCOMPARE(check(UserUtils::createUserNameValidator, QStringLiteral("user12")), Rejected);
}

void InputValidatorsTest::givesUpPatternsThatBacktrackWithoutEnd_data()
{
    QTest::addColumn<QByteArray>("pattern");

    const char *patterns[] = {
        "^(a+)+$",
        "(a|aa)+",
        "([a-z]+)*[0-9]",
        "(.*)*x",
        "((a+)+)+b",
        "(a+)+\\1",
        "a*a*a*a*a*a*a*a*a*a*a*a*b",
        "(?:a?){32}a{32}",
        "(?=(a+)+$)(a+)+$",
        "(a|(?1)(?1))*b",
    };
    for (const char *pattern : patterns) {
        QTest::newRow(pattern) << QByteArray(pattern);
    }
}

/** Typing goes on while the toolkit looks for a match that is not there. */
void InputValidatorsTest::givesUpPatternsThatBacktrackWithoutEnd()
{
    QFETCH(QByteArray, pattern);

    constexpr qint64 longest = 1000; // in milliseconds; some twenty are usual
    Sandbox::write(adduserConf(), "NAME_REGEX=\"" + pattern + "\"\n");
    const std::unique_ptr<QValidator> validator(UserUtils::createUserNameValidator(nullptr));
    for (const int length : {1, 10, 20, 25, 31}) {
        QString text = letters(length) + QLatin1Char('!');
        int position = 0;
        QElapsedTimer timer;
        timer.start();
        QVERIFY(validator->validate(text, position) != Accepted);
        QVERIFY2(timer.elapsed() < longest, qPrintable(QString::number(timer.elapsed()) + QLatin1Char(' ') + text));
    }
}

void InputValidatorsTest::checksGroupNames_data()
{
    addRows({
        {"staff", Accepted},
        {"_grp", Accepted},
        {"machine$", Accepted},
        {"_", Accepted},
        {"a-b_c9-", Accepted},
        {"_$", Accepted},
        {"", Unfinished},
        {"$", Rejected},
        {"Grp", Rejected},
        {"1grp", Rejected},
        {"-grp", Rejected},
        {"machine$$", Rejected},
        {"ma$chine", Rejected},
        {"gr p", Rejected},
        {"g\u00e4ste", Rejected},
    });
}

void InputValidatorsTest::checksGroupNames()
{
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);

    // The file is for user names only.
    Sandbox::write(adduserConf(), "NAME_REGEX=\"[0-9]+\"\n");
    QCOMPARE(check(UserUtils::createGroupNameValidator, text), state);
}

void InputValidatorsTest::checksGecos_data()
{
    addRows({
        {"", Accepted},
        {"a,b,c,d,e", Accepted},
        {",,,,", Accepted},
        {"Ren\u00e9 M\u00fcller, 1 <x@y>: \"'\\", Accepted},
        {"a,b,c,d,e,f", Rejected},
        {",,,,,", Rejected},
        {"a,b,c,d,e,", Rejected},
    });
}

void InputValidatorsTest::checksGecos()
{
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);

    QCOMPARE(check(UserUtils::createGecosValidator, text), state);
}

void InputValidatorsTest::checksLongGecos()
{
    const QString longText = letters(10000);
    QCOMPARE(check(UserUtils::createGecosValidator, longText), Accepted);
    QCOMPARE(check(UserUtils::createGecosValidator, longText + QStringLiteral("\n\t,,,,") + longText), Accepted);
    QCOMPARE(check(UserUtils::createGecosValidator, longText + QStringLiteral(",,,,,")), Rejected);
}

void InputValidatorsTest::limitsNames_data()
{
    addNameFactories();
}

void InputValidatorsTest::limitsNames()
{
    QFETCH(Factory, create);

    QCOMPARE(check(create, letters(31)), Accepted);
    QCOMPARE(check(create, letters(32)), Accepted);
    QCOMPARE(check(create, letters(33)), Rejected);
    QCOMPARE(check(create, letters(1000)), Rejected);
}

void InputValidatorsTest::limitsNamesThatCouldBecomeValid()
{
    Sandbox::write(adduserConf(), "NAME_REGEX=\"a*b\"\n");
    QCOMPARE(check(UserUtils::createUserNameValidator, letters(32)), Unfinished);
    QCOMPARE(check(UserUtils::createUserNameValidator, letters(33)), Rejected);
}

void InputValidatorsTest::countsUtf16Units()
{
    const QString smile = QString::fromUtf8("\xf0\x9f\x99\x82");
    Sandbox::write(adduserConf(), "NAME_REGEX=\".*\"\n");
    QCOMPARE(check(UserUtils::createUserNameValidator, smile.repeated(16)), Accepted);
    QCOMPARE(check(UserUtils::createUserNameValidator, smile.repeated(16) + QLatin1Char('a')), Rejected);
}

void InputValidatorsTest::leavesTooLongInputAlone_data()
{
    addNameFactories();
}

void InputValidatorsTest::leavesTooLongInputAlone()
{
    QFETCH(Factory, create);

    const std::unique_ptr<QValidator> validator(create(nullptr));
    QString input = letters(33);
    int pos = 7;
    QCOMPARE(validator->validate(input, pos), Rejected);
    QCOMPARE(input, letters(33));
    QCOMPARE(pos, 7);
}

void InputValidatorsTest::movesPositionLikeTheToolkit_data()
{
    addFactories();
}

void InputValidatorsTest::movesPositionLikeTheToolkit()
{
    QFETCH(Factory, create);

    const std::unique_ptr<QValidator> validator(create(nullptr));
    const QRegularExpressionValidator plain(QRegularExpression(patternOf(validator.get())));
    for (const char *text : {"", "user", "US", ",,,,,", "a$b"}) {
        QString input = QLatin1String(text);
        QString plainInput = input;
        int pos = 1;
        int plainPos = 1;
        QCOMPARE(validator->validate(input, pos), plain.validate(plainInput, plainPos));
        QCOMPARE(input, plainInput);
        QCOMPARE(pos, plainPos);
    }
}

void InputValidatorsTest::stopsTypingAtTheLimit_data()
{
    addNameFactories();
}

void InputValidatorsTest::stopsTypingAtTheLimit()
{
    QFETCH(Factory, create);

    QLineEdit edit;
    edit.setValidator(create(&edit));
    QTest::keyClicks(&edit, letters(32));
    QCOMPARE(edit.text(), letters(32));
    QTest::keyClick(&edit, Qt::Key_A);
    QCOMPARE(edit.text(), letters(32));

    QTest::keyClick(&edit, Qt::Key_Backspace);
    QTest::keyClicks(&edit, QStringLiteral("Bb"));
    QCOMPARE(edit.text(), letters(31) + QLatin1Char('b'));
}

void InputValidatorsTest::createsOneForEachCall_data()
{
    addFactories();
}

void InputValidatorsTest::createsOneForEachCall()
{
    QFETCH(Factory, create);

    const std::unique_ptr<QValidator> first(create(nullptr));
    const std::unique_ptr<QValidator> second(create(nullptr));
    QVERIFY(first != second);
    QVERIFY(!first->parent());
    QCOMPARE(patternOf(first.get()), patternOf(second.get()));
}

void InputValidatorsTest::matchesWithDefaultOptions_data()
{
    addFactories();
}

void InputValidatorsTest::matchesWithDefaultOptions()
{
    QFETCH(Factory, create);

    const std::unique_ptr<QValidator> validator(create(nullptr));
    QCOMPARE(int(expressionOf(validator.get()).patternOptions()), int(QRegularExpression::NoPatternOption));
}

void InputValidatorsTest::isOwnedByParent_data()
{
    addFactories();
}

void InputValidatorsTest::isOwnedByParent()
{
    QFETCH(Factory, create);

    auto parent = std::make_unique<QObject>();
    const QPointer<QValidator> validator = create(parent.get());
    QCOMPARE(validator->parent(), parent.get());
    parent.reset();
    QVERIFY(!validator);
}

void InputValidatorsTest::hasNoMetaObjectOfItsOwn_data()
{
    addFactories();
}

void InputValidatorsTest::hasNoMetaObjectOfItsOwn()
{
    QFETCH(Factory, create);

    const std::unique_ptr<QValidator> validator(create(nullptr));
    QCOMPARE(validator->metaObject(), &QRegularExpressionValidator::staticMetaObject);
}

QTEST_MAIN(InputValidatorsTest)

#include "inputvalidatorstest.moc"
