/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "dialogparts.h"
#include "patience.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QGridLayout>
#include <QStyledItemDelegate>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace
{
/** The positions in a cell depend on options that only the view and the delegate know. */
class CellOption : public QStyledItemDelegate
{
public:
    QRect part(const QAbstractItemView &view, const QModelIndex &index, QStyle::SubElement element) const
    {
        QStyleOptionViewItem option;
        option.initFrom(view.viewport());
        option.widget = &view;
        option.rect = view.visualRect(index);
        const int iconSize = view.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &view);
        option.decorationSize = QSize(iconSize, iconSize);
        initStyleOption(&option, index);
        return view.style()->subElementRect(element, &option, &view);
    }
};

QPoint centre(QAbstractItemView &view, const QString &text, QStyle::SubElement element)
{
    const QModelIndex index = viewIndex(view, text);
    view.scrollTo(index);
    return CellOption().part(view, index, element).center();
}

/** Views do not report that they can get the focus. */
bool isFocusable(const QAccessibleInterface &element)
{
    const auto *widget = qobject_cast<QWidget *>(element.object());
    return element.state().focusable || (widget && widget->focusPolicy() != Qt::NoFocus);
}

void collectUnnamed(QAccessibleInterface *element, QStringList &unnamed)
{
    if (element->state().invisible) {
        return;
    }
    if (isFocusable(*element) && element->text(QAccessible::Name).isEmpty()) {
        const QObject *object = element->object();
        unnamed.append(object ? QString::fromLatin1(object->metaObject()->className()) + object->objectName()
                              : QStringLiteral("role %1").arg(element->role()));
    }
    for (int i = 0; i < element->childCount(); ++i) {
        if (QAccessibleInterface *child = element->child(i)) {
            collectUnnamed(child, unnamed);
        }
    }
}
}

bool open(QDialog &dialog)
{
    dialog.open();
    return QTest::qWaitForWindowActive(&dialog, patience);
}

QStringList gridCells(const QGridLayout &layout)
{
    QStringList cells;
    for (int i = 0; i < layout.count(); ++i) {
        int row = 0;
        int column = 0;
        int rowSpan = 0;
        int columnSpan = 0;
        layout.getItemPosition(i, &row, &column, &rowSpan, &columnSpan);
        cells.append(QStringLiteral("%1 %2,%3 %4x%5")
                         .arg(layout.itemAt(i)->widget()->objectName())
                         .arg(row)
                         .arg(column)
                         .arg(rowSpan)
                         .arg(columnSpan));
    }
    return cells;
}

QStringList comboBoxEntries(const QComboBox &comboBox)
{
    QStringList entries;
    for (int i = 0; i < comboBox.count(); ++i) {
        const QVariant data = comboBox.itemData(i, Qt::UserRole);
        const QString entry =
            QStringLiteral("%1 %2 %3").arg(comboBox.itemText(i), QLatin1String(data.typeName()), data.toString());
        entries.append(comboBox.itemIcon(i).isNull() ? entry : entry + QLatin1Char('*'));
    }
    return entries;
}

QModelIndex viewIndex(const QAbstractItemView &view, const QString &text)
{
    const QAbstractItemModel &model = *view.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, 0);
        if (index.data().toString() == text) {
            return index;
        }
    }
    qFatal("The view does not show %s", qPrintable(text));
}

void clickCheckBox(QAbstractItemView &view, const QString &text)
{
    const QPoint position = centre(view, text, QStyle::SE_ItemViewItemCheckIndicator);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, position);
}

void clickText(QAbstractItemView &view, const QString &text)
{
    const QPoint position = centre(view, text, QStyle::SE_ItemViewItemText);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, position);
}

void doubleClickText(QAbstractItemView &view, const QString &text)
{
    // A view accepts a double click only on the row of the press before.
    clickText(view, text);
    const QPoint position = centre(view, text, QStyle::SE_ItemViewItemText);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, position);
}

QStringList tabOrder(QWidget &dialog, QWidget *first)
{
    QStringList names;
    first->setFocus();
    for (QWidget *widget = dialog.focusWidget(); widget; widget = dialog.focusWidget()) {
        const QString name =
            widget->objectName().isEmpty() ? widget->property("text").toString() : widget->objectName();
        if (names.contains(name)) {
            break;
        }
        names.append(name);
        QTest::keyClick(widget, Qt::Key_Tab);
    }
    return names;
}

QStringList unnamedAccessibles(QWidget &dialog)
{
    QStringList unnamed;
    collectUnnamed(QAccessible::queryAccessibleInterface(&dialog), unnamed);
    return unnamed;
}

void withFileDialog(const QDialog &dialog, const std::function<void(QFileDialog *)> &work)
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    bool done = false;
    QTimer timer; // fires in the event loop of the file dialog
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto *fileDialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!fileDialog) {
            qFatal("No file dialog appears");
        }
        work(fileDialog);
        if (fileDialog->isVisible()) { // a failed comparison in there leaves it open
            fileDialog->reject();
        }
        done = true;
    });
    timer.start(0);
    part<QToolButton>(dialog, "fileButton")->click();
    if (!done) {
        qFatal("The file dialog was not shown");
    }
}
