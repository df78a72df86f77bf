#pragma once

#include <QString>
#include <QVariant>
#include <vector>

namespace brindlex {

/// A control's stored properties: key -> value, in the order in which they were first written. Keys
/// are compared without regard to case. A value equal to its default is left out. Pictures
/// (QPixmap, QImage) with the same pixels are equal; an empty picture equals an invalid value.
class PropertyBag {
  public:
    /// The stored value; `defaultValue` when the key is absent or its value cannot become the type
    /// of the default.
    QVariant readProperty(const QString& key, const QVariant& defaultValue) const;
    /// Stores the value, or removes the key when the value equals the default.
    void writeProperty(const QString& key, const QVariant& value, const QVariant& defaultValue);
    std::vector<QString> keys() const;

  private:
    struct Entry {
        QString key;
        QVariant value;
    };
    std::vector<Entry>::const_iterator find(const QString& key) const;

    std::vector<Entry> entries_;
};

}  // namespace brindlex
