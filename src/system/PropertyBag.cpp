#include "system/PropertyBag.h"

#include <QImage>
#include <QPixmap>
#include <algorithm>
#include <cmath>

namespace brindlex {
namespace {

bool isPicture(const QVariant& value) {
    const int type = value.typeId();
    return type == QMetaType::QPixmap || type == QMetaType::QImage;
}

QImage imageOf(const QVariant& value) {
    return value.typeId() == QMetaType::QPixmap ? value.value<QPixmap>().toImage()
                                                : value.value<QImage>();
}

bool same(const QVariant& a, const QVariant& b) {
    const bool pictures = (isPicture(a) || !a.isValid()) && (isPicture(b) || !b.isValid());
    return pictures ? imageOf(a) == imageOf(b) : a == b;
}

bool isInteger(int type) {
    return type == QMetaType::Int || type == QMetaType::UInt || type == QMetaType::LongLong ||
           type == QMetaType::ULongLong;
}

/// Whether a conversion kept the value; the toolkit cuts an integer that does not fit and reports
/// success.
bool survived(const QVariant& before, const QVariant& after) {
    return !isInteger(after.typeId()) || std::abs(before.toDouble() - after.toDouble()) <= 0.5;
}

}  // namespace

std::vector<PropertyBag::Entry>::const_iterator PropertyBag::find(const QString& key) const {
    return std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return entry.key.compare(key, Qt::CaseInsensitive) == 0;
    });
}

QVariant PropertyBag::readProperty(const QString& key, const QVariant& defaultValue) const {
    const auto entry = find(key);
    if (entry == entries_.end()) return defaultValue;
    if (!defaultValue.isValid()) return entry->value;
    QVariant value = entry->value;
    const bool converted = value.convert(defaultValue.metaType()) && survived(entry->value, value);
    return converted ? value : defaultValue;
}

void PropertyBag::writeProperty(const QString& key, const QVariant& value,
                                const QVariant& defaultValue) {
    const auto entry = find(key);
    const auto place = entries_.begin() + (entry - entries_.cbegin());
    if (same(value, defaultValue)) {
        if (entry != entries_.end()) entries_.erase(place);
    } else if (entry != entries_.end()) {
        place->value = value;
    } else {
        entries_.push_back({key, value});
    }
}

std::vector<QString> PropertyBag::keys() const {
    std::vector<QString> keys;
    for (const Entry& entry : entries_) keys.push_back(entry.key);
    return keys;
}

}  // namespace brindlex
