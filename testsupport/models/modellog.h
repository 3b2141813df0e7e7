/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MODELLOG_H
#define MODELLOG_H

#include <QAbstractItemModelTester>
#include <QIdentityProxyModel>
#include <QStringList>

#include <initializer_list>

/**
 * Records the change signals of a model as "reset", "insert 3-3", "remove 0-1" and "change 0,0-0,0 roles 10". A
 * signal whose counterpart is missing is recorded as well.
 */
class ModelLog : public QObject
{
    Q_OBJECT

public:
    explicit ModelLog(const QAbstractItemModel *model);

    /** The signals since the last call. */
    QStringList take();

private:
    void add(const QString &line);

    QStringList m_lines;
};

/** Makes a table model, whose rowCount() ignores the parent, a tree without branches. */
class FlatProxy : public QIdentityProxyModel
{
    Q_OBJECT

public:
    explicit FlatProxy(QAbstractItemModel *source);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
};

/** Fails the test, or ends the program, when a table model breaks the rules of item models. */
class TableTester
{
public:
    using Mode = QAbstractItemModelTester::FailureReportingMode;

    explicit TableTester(QAbstractItemModel *model, Mode mode = Mode::QtTest);

private:
    FlatProxy m_proxy;
    QAbstractItemModelTester m_tester;
};

/** Texts without a QStringLiteral() around each. */
QStringList lines(std::initializer_list<const char *> texts);
QStringList words(const char *text);

/** The enumerations that a class itself registers, each followed by its keys: "Column", "NameColumn=0". */
QStringList enumerationTexts(const QMetaObject &meta);

/** A row as it reads on the screen: "[x] zoe | 1000 | No"; without check boxes "zoe | 1000 | No". */
QString rowText(const QAbstractItemModel &model, int row);
QStringList rowTexts(const QAbstractItemModel &model);

/** The texts of the first column, in one line. */
QString shownNames(const QAbstractItemModel &model);

#endif
