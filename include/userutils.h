/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERUTILS_H
#define USERUTILS_H

#include "ormelusersqt_export.h"

#include <QString>
#include <QValidator>

/**
 * @class UserUtils userutils.h <UserUtils>
 *
 * What editors of accounts need besides the records: checks of typed names, password hashes and
 * stock pictures. All operations are static; there are no objects of this class.
 *
 * @code
 * nameEdit->setValidator(UserUtils::createUserNameValidator(nameEdit));
 *
 * const QString hash = UserUtils::saltPassword(passwordEdit->text(), false);
 * if (hash.isEmpty() || hash.startsWith(QLatin1Char('*'))) {
 *     // not hashed
 * }
 * @endcode
 *
 * No result is cached. Nothing is logged except the warnings of Qt about invalid patterns.
 *
 * The validators belong to the thread that makes them. All operations may be called from several
 * threads at once, except saltPassword().
 */
class ORMELUSERSQT_EXPORT UserUtils
{
public:
    UserUtils() = delete;
    ~UserUtils() = delete;

    /**
     * Creates a validator for the login names of new users: at most 32 characters that match, as
     * a whole, the pattern NAME_REGEX of @c /etc/adduser.conf or, without one,
     * <tt>[a-z][a-z0-9\_\-]*</tt>.
     *
     * The file is read on each call, as Latin-1. The pattern is taken from a line that starts with
     * @c NAME_REGEX= in the first column and has its value in one pair of double quotes, with no
     * further @c = or quote in the line. The last such line counts; if it has nothing between its
     * quotes, there is no pattern. Other lines are ignored, and so is a file that cannot be read.
     *
     * The pattern is not checked. An invalid one makes a validator that accepts no name, and Qt warns
     * about it at each key press. A pattern that backtracks without end makes texts
     * @c QValidator::Invalid, because Qt gives up each match: usually after less than a tenth of a second,
     * later when there are dozens of alternatives to repeat.
     *
     * A text of more than 32 characters (QString::size()) is @c QValidator::Invalid at once, so
     * that a line edit does not take the 33rd character.
     *
     * @return a new QRegularExpressionValidator, owned by @p parent or, without one, by the caller.
     *
     * @see createGroupNameValidator()
     */
    static QValidator *createUserNameValidator(QObject *parent);

    /**
     * Creates a validator for group names: at most 32 characters that match, as a whole,
     * <tt>[a-z_][a-z0-9_-]*[$]?</tt>. Otherwise as createUserNameValidator(), but no file is read.
     *
     * @see createUserNameValidator()
     */
    static QValidator *createGroupNameValidator(QObject *parent);

    /**
     * Creates a validator for the GECOS field: any text with at most four commas, that is five
     * subfields, of any length.
     *
     * @return a new QRegularExpressionValidator, owned by @p parent or, without one, by the caller.
     */
    static QValidator *createGecosValidator(QObject *parent);

    /**
     * Draws one of the 64 characters that salts consist of (letters, digits, "." and "/"), each with
     * the same probability, from the operating system's secure random source. It does not fail.
     *
     * @see saltPassword()
     */
    static char saltCharacter();

    /**
     * Hashes @p password for the password field of the shadow file, with a fresh salt of 16
     * characters on each call.
     *
     * @param password the clear text, hashed over its UTF-8 bytes up to the first null character;
     * an empty password is hashed like any other. Copies of it stay in freed memory.
     * @param useGost whether to hash with @c gost_crypt of @c libgost.so.2 and the method
     * @c $gost12512hash$ (GOST R 34.11-2012, 512 bits) instead of with @c crypt and the method
     * @c $6$ (SHA-512)
     *
     * @return the whole result of the hash function, method and salt included; null when there is
     * none: with GOST where this library was built without a GOST library, and with the GOST library
     * that comes along for a password of more than 511 bytes.
     *
     * @c crypt may also report a failure, for instance a password that is too long for it, by a
     * string that is no hash, @c "*0" or @c "*1". It is returned like a hash, and nobody can log
     * in with it: treat an empty string and one that starts with @c "*" as a failure.
     *
     * Takes about 1 to 10 ms, with GOST 7 to 32 ms; longer passwords take longer. For one thread at a
     * time: the hash functions keep their result in static storage.
     *
     * @see saltCharacter()
     */
    static QString saltPassword(const QString &password, bool useGost);

    /**
     * @return the directory of the stock user pictures, @c /usr/share/kiv/faces, whether or not it exists.
     *
     * @see getRandomUserIcon(), UserIconDialog
     */
    static QString userIconPath();

    /**
     * Picks a picture for a new account from userIconPath() and its direct subdirectories.
     *
     * Every file that is not hidden counts as a picture. The directory is listed as one of its own
     * subdirectories, so that its files are twice as likely as those further down, and its parent
     * directory @c /usr/share/kiv is listed too. Each is listed by name, without regard to case.
     *
     * @param preferDefault whether to return the stock default picture, the first one whose file
     * name begins with "default-user-red.", if there is one. Otherwise the pick is random and the
     * default picture is avoided: a pick of a file whose name contains "default-user-red." moves
     * to the next file, once, even if that is a default picture too.
     *
     * @return the absolute path of the picture; null when there is none or no such directory.
     *
     * Lists the directories on each call.
     *
     * @see userIconPath()
     */
    static QString getRandomUserIcon(bool preferDefault);
};

#endif
