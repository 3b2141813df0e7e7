/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "modellog.h"

#include <QMetaEnum>

namespace
{
QString rangeText(const QModelIndex &parent, int first, int last)
{
    const QString text = QStringLiteral("%1-%2").arg(first).arg(last);
    return parent.isValid() ? text + QStringLiteral(" below %1").arg(parent.row()) : text;
}

QString cell(const QModelIndex &index)
{
    return QStringLiteral("%1,%2").arg(index.row()).arg(index.column());
}

QString changeText(const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles)
{
    QStringList numbers;
    for (int role : roles) {
        numbers.append(QString::number(role));
    }
    return QStringLiteral("change %1-%2 roles %3")
        .arg(cell(topLeft), cell(bottomRight), numbers.join(QLatin1Char(' ')));
}
}

ModelLog::ModelLog(const QAbstractItemModel *model)
{
    using Model = QAbstractItemModel;
    connect(model, &Model::modelAboutToBeReset, this, [this] { add(QStringLiteral("begin reset")); });
    connect(model, &Model::modelReset, this, [this] { add(QStringLiteral("reset")); });
    connect(model, &Model::rowsAboutToBeInserted, this, [this](const QModelIndex &parent, int first, int last) {
        add(QStringLiteral("begin insert ") + rangeText(parent, first, last));
    });
    connect(model, &Model::rowsInserted, this, [this](const QModelIndex &parent, int first, int last) {
        add(QStringLiteral("insert ") + rangeText(parent, first, last));
    });
    connect(model, &Model::rowsAboutToBeRemoved, this, [this](const QModelIndex &parent, int first, int last) {
        add(QStringLiteral("begin remove ") + rangeText(parent, first, last));
    });
    connect(model, &Model::rowsRemoved, this, [this](const QModelIndex &parent, int first, int last) {
        add(QStringLiteral("remove ") + rangeText(parent, first, last));
    });
    connect(model,
            &Model::dataChanged,
            this,
            [this](const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles) {
                add(changeText(topLeft, bottomRight, roles));
            });
    connect(model, &Model::layoutChanged, this, [this] { add(QStringLiteral("layout")); });
    connect(model, &Model::rowsMoved, this, [this] { add(QStringLiteral("move")); });
    connect(model, &Model::headerDataChanged, this, [this] { add(QStringLiteral("header")); });
}

QStringList ModelLog::take()
{
    QStringList lines;
    lines.swap(m_lines);
    return lines;
}

void ModelLog::add(const QString &line)
{
    const bool endsWhatBegan = !m_lines.isEmpty() && m_lines.constLast() == QStringLiteral("begin ") + line;
    if (endsWhatBegan) {
        m_lines.removeLast();
    }
    m_lines.append(line);
}

FlatProxy::FlatProxy(QAbstractItemModel *source)
{
    setSourceModel(source);
}

int FlatProxy::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : QIdentityProxyModel::rowCount();
}

bool FlatProxy::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

TableTester::TableTester(QAbstractItemModel *model, Mode mode)
    : m_proxy(model)
    , m_tester(&m_proxy, mode)
{
}

QStringList lines(std::initializer_list<const char *> texts)
{
    QStringList lines;
    for (const char *text : texts) {
        lines.append(QString::fromUtf8(text));
    }
    return lines;
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList enumerationTexts(const QMetaObject &meta)
{
    QStringList texts;
    for (int i = meta.enumeratorOffset(); i < meta.enumeratorCount(); ++i) {
        const QMetaEnum enumeration = meta.enumerator(i);
        const QString name = QString::fromLatin1(enumeration.name());
        texts.append(enumeration.isFlag() ? QStringLiteral("flags ") + name : name);
        for (int key = 0; key < enumeration.keyCount(); ++key) {
            texts.append(QStringLiteral("%1=%2").arg(QLatin1String(enumeration.key(key))).arg(enumeration.value(key)));
        }
    }
    return texts;
}

QString rowText(const QAbstractItemModel &model, int row)
{
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
        cells.append(model.index(row, column).data().toString());
    }
    const QVariant checked = model.index(row, 0).data(Qt::CheckStateRole);
    const QString box = checked == Qt::Checked ? QStringLiteral("[x] ") : QStringLiteral("[ ] ");
    return (checked.isValid() ? box : QString()) + cells.join(QStringLiteral(" | "));
}

QStringList rowTexts(const QAbstractItemModel &model)
{
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row) {
        lines.append(rowText(model, row));
    }
    return lines;
}

QString shownNames(const QAbstractItemModel &model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row) {
        names.append(model.index(row, 0).data().toString());
    }
    return names.join(QLatin1Char(' '));
}
