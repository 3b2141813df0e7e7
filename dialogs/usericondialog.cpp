/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "usericondialog.h"

#include "iconselectwidget_p.h"
#include "picturereader.h"
#include "ui_usericondialog.h"
#include "userutils.h"

#include <KLocalizedString>

#include <QClipboard>
#include <QFileDialog>
#include <QMimeData>
#include <QPushButton>

namespace
{
/** The image in a file of any format and name; null when it cannot be read or is refused. */
QImage readImage(const QString &fileName)
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    QImage image = PictureReader::read(fileName).image;
    QGuiApplication::restoreOverrideCursor();
    return image;
}

/**
 * @p image with a colour for every number that a pixel can hold, since Qt reads beyond the end of a
 * shorter colour table. The added colours are what conversions of the image make of such pixels.
 */
QImage withWholeColorTable(QImage image)
{
    if (image.pixelFormat().colorModel() != QPixelFormat::Indexed) {
        return image;
    }
    const QRgb added = image.hasAlphaChannel() ? qRgba(0, 0, 0, 0) : qRgb(0, 0, 0);
    for (int number = image.colorCount(); number < 1 << image.depth(); ++number) {
        image.setColor(number, added);
    }
    return image;
}
}

UserIconDialog::UserIconDialog(QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::UserIconDialog)
{
    ui->setupUi(this);
    m_iconWidget = new IconSelectWidget(this);
    auto *previewLayout = new QHBoxLayout;
    previewLayout->addWidget(m_iconWidget);
    ui->previewFrame->setLayout(previewLayout);
    ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(false);

    const auto connectButton = [this](const QToolButton *button, void (IconSelectWidget::*slot)()) {
        connect(button, &QToolButton::clicked, m_iconWidget, slot);
    };
    connectButton(ui->selectAllButton, &IconSelectWidget::selectAll);
    connectButton(ui->rotateClockwiseButton, &IconSelectWidget::rotateClockwise);
    connectButton(ui->rotateCounterClockwiseButton, &IconSelectWidget::rotateCounterClockwise);
    connectButton(ui->horizontalMirrorButton, &IconSelectWidget::horizontalMirror);
    connectButton(ui->verticalMirrorButton, &IconSelectWidget::verticalMirror);
}

UserIconDialog::~UserIconDialog()
{
    delete ui;
}

void UserIconDialog::setPixmap(const QPixmap &pixmap)
{
    showImage(pixmap.toImage());
}

QPixmap UserIconDialog::selectedPixmap() const
{
    return QPixmap::fromImage(m_iconWidget->image().copy(m_iconWidget->imageSelection()));
}

void UserIconDialog::on_fileButton_clicked(bool /*checked*/)
{
    const QString fileName = QFileDialog::getOpenFileName(
        this, i18n("Select Image"), UserUtils::userIconPath(), i18n("Images (*.png *.xpm *.jpg *.jpeg *.icon *.svg)"));
    if (!fileName.isEmpty()) {
        showImage(readImage(fileName));
    }
}

void UserIconDialog::on_clipboardButton_clicked()
{
    const QClipboard *clipboard = QGuiApplication::clipboard();
    const QMimeData *data = clipboard->mimeData(QClipboard::Clipboard);
    if (data && data->hasImage()) {
        showImage(clipboard->image(QClipboard::Clipboard));
    }
}

void UserIconDialog::showImage(const QImage &image)
{
    m_iconWidget->setImage(withWholeColorTable(image));
    ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(true);
}
