// Lets ThreadSanitizer see the one operation on the pointer of a QString or a QByteArray that Qt does not do inline:
// assignment by copy. As QMutexInterposer.cpp does, the functions take the place of Qt's, and do the same; but they are
// built with the checker.

#include <QByteArray>
#include <QString>

QString &QString::operator=(const QString &other) noexcept
{
    other.d->ref.ref();
    if (!d->ref.deref()) {
        Data::deallocate(d);
    }
    d = other.d;
    return *this;
}

QByteArray &QByteArray::operator=(const QByteArray &other) noexcept
{
    other.d->ref.ref();
    if (!d->ref.deref()) {
        Data::deallocate(d);
    }
    d = other.d;
    return *this;
}
