/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSPARSER_H
#define LIMITSPARSER_H

#include "groupinfo.h"
#include "ormelusersqt_export.h"
#include "userinfo.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/**
 * @class LimitsParser limitsparser.h <LimitsParser>
 *
 * The resource limits that PAM sets at login: the rules of @c /etc/security/limits.conf and of
 * the files of @c /etc/security/limits.d, which of them applies to an account, and what the words
 * in them mean.
 *
 * @code
 * LimitsParser limits;
 * QString error;
 * if (!limits.readLimitsConf(error)) {
 *     qWarning() << error;
 * }
 * const UserInfo alice = UserInfo::getUser(QStringLiteral("alice"));
 * const QVariant value = limits.getItem(alice, QStringLiteral("nofile"));
 * if (!value.isNull()) {
 *     qDebug() << LimitsParser::valueToString(value, QStringLiteral("nofile"));
 * }
 * @endcode
 *
 * A rule is one line with four columns: the domain (whom it is for), the type ("soft", "hard" or
 * "-"), the item (what is limited) and the value. The columns are taken as they are. Rules that
 * PAM would not understand are kept, too.
 *
 * The static functions explain items, types, values and domains; they read no file. Texts are
 * translated.
 *
 * Parsers are values: a copy shares its rules until one of the two reads again. Lookups on one
 * parser and the static functions may be called from several threads at once, but not while
 * readLimitsConf() runs on the same parser.
 *
 * @see UserInfo, GroupInfo
 */
class ORMELUSERSQT_EXPORT LimitsParser
{
public:
    /** The kind and unit of an item's value. */
    enum ValueType {
        Unknown = -1, ///< not an item of the catalogue
        Bytes = 0,
        KiloBytes = 1,
        Minutes = 2,
        Number = 3, ///< a count or a priority, without a unit
        Boolean = 4, ///< 1 is on
        Path = 6, ///< a directory
    };

    /** What the catalogue says about an item. The defaults are for items that it does not have. */
    struct FieldDescriptor {
        int minValue = -1; ///< the lowest value to offer; -1 where "unlimited" is one
        int maxValue = -1; ///< the highest value to offer
        int valueType = Unknown; ///< a ValueType
        bool hardOnly = false; ///< whether only a hard limit makes sense
        QString defaultType; ///< the type to propose for a new rule, "soft" or "hard"
        QString description; ///< one line of text, in the language in which the library was loaded
    };

    /** One rule. The defaults stand for no rule. */
    struct Field {
        QString domain; ///< first column: an account, "@group", "%group", "*" or whatever the file says
        QString type; ///< second column
        QString item; ///< third column
        /**
         * Fourth column: a QString when it begins with a slash, otherwise an int, -1 for
         * "unlimited" and "infinity" and 0 for anything that is not a decimal integer.
         */
        QVariant value;
        int valueType = Unknown; ///< a ValueType, that of the item
    };

    /** A parser without rules. Reads nothing. */
    LimitsParser();

    /**
     * Replaces the rules by those of @c /etc/security/limits.conf followed by those of the files
     * in @c /etc/security/limits.d: regular files and links to them, whatever their suffix, in the
     * case-sensitive order of their names, hidden ones left out. A directory that does not exist
     * adds nothing.
     *
     * Lines are read as Latin-1 and end at a NUL byte. Columns are separated by spaces only; a
     * line with tabs in their place has too few columns. Such lines, empty ones and those that
     * begin with "#" are skipped without a message. What follows the fourth column is ignored.
     *
     * @param error receives a translated message when a file cannot be opened, and is left alone
     * otherwise
     * @return whether every file could be opened. Reading ends at the first that could not; the
     * rules of the files before it are kept.
     *
     * Costs one pass over the files.
     */
    bool readLimitsConf(QString &error);

    /** @return the rules in the order of the files and of the lines in them. The list is shared, not copied. */
    QList<Field> fields() const;

    /**
     * Finds the first rule for exactly @p domain and @p item, whatever its type.
     *
     * @return its value; a null variant when there is none.
     *
     * Costs at most one pass over the rules, as every step of getItem() does.
     */
    QVariant findField(const QString &domain, const QString &item) const;

    /**
     * Finds the value of @p item for @p user. The first of these that has a rule decides: the
     * name, the groups as "@group" in the order of UserInfo::groupNames(), for "maxlogins" the
     * groups as "%group" in that order, the rules for user ids, those for group ids, and "*". For
     * the name "root", only a rule for that name counts.
     *
     * Domains with ranges of plain numbers, such as "1000:2000" or "@100:", are not understood:
     * rules with them apply to nobody.
     *
     * @return the value, as Field::value holds it; a null variant when no rule applies.
     */
    QVariant getItem(const UserInfo &user, const QString &item) const;

    /**
     * Finds the value of @p item for @p group. The first of these that has a rule decides:
     * "@group", for "maxlogins" "%group", the rules for group ids, and "*".
     *
     * @return as getItem() for a user.
     */
    QVariant getItem(const GroupInfo &group, const QString &item) const;

    /**
     * @return what the catalogue says about @p item; a default FieldDescriptor for an item it does
     * not have. Upper and lower case differ.
     */
    static FieldDescriptor fieldDescriptor(const QString &item);

    /** @return the ValueType of @p item; Unknown for an item that the catalogue does not have. */
    static int valueType(const QString &item);

    /**
     * Formats @p value, a value of @p item: an integer with its unit or, for a Boolean,
     * "Enabled" or "Disabled", translated; the value's own text for every other item.
     *
     * An unlimited value has no text of its own: it is shown as -1, with the item's unit. A null @p value
     * is shown as 0 where there is a unit, as "Disabled" for a Boolean, and else as an empty text.
     */
    static QString valueToString(const QVariant &value, const QString &item);

    /** @return the description of @p item; @p item itself when there is none. */
    static QString itemToolTip(const QString &item);

    /**
     * @return what the type "soft", "hard" or "-" means, as rich text in the language of the
     * first call; any other @p type itself.
     */
    static QString typeToolTip(const QString &type);

    /**
     * Explains whom @p domain is for: the range of user ids or group ids that it names, everybody for
     * "*", the group behind a leading "@", or else the user of that name. No account is looked up.
     *
     * @return plain text in the language at the time of the call; never empty.
     */
    static QString domainToolTip(const QString &domain);

    /** @return the names of the catalogue's items in ascending order. Built on each call. */
    static QStringList availableItems();

    /**
     * The catalogue: every item that a rule may name. Filled when the library is loaded and never
     * changed. Its descriptions stay in the language of that moment. In a program that is linked
     * to the library this is English, since no application object exists yet.
     */
    static const QMap<QString, FieldDescriptor> m_fieldDescriptionsMap;

private:
    QList<Field> m_fields;
};

Q_DECLARE_TYPEINFO(LimitsParser::FieldDescriptor, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(LimitsParser::Field, Q_MOVABLE_TYPE);

#endif
