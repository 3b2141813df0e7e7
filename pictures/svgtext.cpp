/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "svgtext.h"

#include "rasterreader.h"
#include "svgreader.h"

#include <QBuffer>
#include <QImageReader>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace
{
/** @p image in the form in which it can be part of an SVG picture. */
QString toReference(const QImage &image)
{
    constexpr int uncompressed = 100;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "png", uncompressed);
    return QLatin1String("data:image/png;base64,") + QString::fromLatin1(bytes.toBase64());
}

/** The image that @p reference contains; null for others, which name a file, and for another SVG picture. */
QImage containedImage(const QString &reference)
{
    static const QLatin1String encoding("base64,");
    const int start = reference.lastIndexOf(encoding);
    if (!reference.trimmed().startsWith(QLatin1String("data:")) || start < 0) {
        return {};
    }
    QByteArray bytes = QByteArray::fromBase64(reference.mid(start + encoding.size()).toLatin1());
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    return SvgReader::canRead(reader) ? QImage() : RasterReader::read(reader).image;
}

bool isReference(const QXmlStreamAttribute &attribute)
{
    const QStringRef name = attribute.qualifiedName();
    return name == QLatin1String("href") || name.endsWith(QLatin1String(":href"));
}

void copyAttribute(const QXmlStreamAttribute &attribute, QXmlStreamWriter &writer)
{
    const QString value = attribute.value().toString();
    if (!isReference(attribute) || value.startsWith(QLatin1Char('#'))) {
        writer.writeAttribute(attribute.qualifiedName().toString(), value);
        return;
    }
    const QImage image = containedImage(value);
    if (!image.isNull()) {
        writer.writeAttribute(attribute.qualifiedName().toString(), toReference(image));
    }
}

void copyStart(const QXmlStreamReader &reader, QXmlStreamWriter &writer)
{
    writer.writeStartElement(reader.qualifiedName().toString());
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        copyAttribute(attribute, writer);
    }
}
}

QByteArray svgWithoutReferences(const QByteArray &svg, bool stopsAtEnd)
{
    QByteArray result;
    QXmlStreamWriter writer(&result);
    writer.writeStartDocument();
    QXmlStreamReader reader(svg);
    reader.setNamespaceProcessing(false); // as Qt reads SVG
    bool isAtEnd = false;
    do {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            copyStart(reader, writer);
            break;
        case QXmlStreamReader::EndElement:
            writer.writeEndElement();
            isAtEnd = stopsAtEnd && reader.name() == QLatin1String("svg");
            break;
        case QXmlStreamReader::Characters:
            writer.writeCharacters(reader.text().toString());
            break;
        default: // instructions, which name style sheets; entities are resolved by now
            break;
        }
    } while (!reader.atEnd() && !isAtEnd);
    return reader.hasError() ? QByteArray() : result; // Qt takes no part of a damaged text either
}
