#include "store/Recordset.h"

#include "core/RuntimeError.h"
#include "store/RecordsetImpl.h"

namespace kelvado {

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

RecordsetImpl& Recordset::Opened() const
{
    if (!IsOpen())
        throw RuntimeError(kErrObjectNotSet);
    return *m_impl;
}

RecordsetImpl& Recordset::Opened(int column) const
{
    RecordsetImpl& opened = Opened();
    if (column < 0 || column >= opened.Columns().size())
        throw RuntimeError::WithDetail(kErrItemNotFound, QString::number(column));
    return opened;
}

void Recordset::Open(const QString& sql, Connection& connection, LockType lock)
{
    Open(sql, {}, connection, lock);
}

void Recordset::Open(const QString& sql, const QList<Value>& values, Connection& connection, LockType lock)
{
    Close();
    if (!connection.m_impl)
        throw RuntimeError(kErrObjectNotSet);
    m_impl = std::make_unique<RecordsetImpl>(connection.m_impl, sql, values, lock);
}

bool Recordset::IsOpen() const
{
    return m_impl && m_impl->IsConnected();
}

void Recordset::Close()
{
    m_impl.reset();
}

bool Recordset::Eof() const
{
    return Opened().Eof();
}

void Recordset::MoveNext()
{
    Opened().MoveNext();
}

void Recordset::MoveFirst()
{
    Opened().MoveFirst();
}

qint64 Recordset::RecordCount() const
{
    return Opened().RecordCount();
}

qint64 Recordset::AbsolutePosition() const
{
    return Opened().AbsolutePosition();
}

int Recordset::ColumnIndex(QStringView name) const
{
    const int index = Opened().ColumnIndex(name);
    if (index < 0)
        throw RuntimeError::WithDetail(kErrItemNotFound, name.toString());
    return index;
}

int Recordset::ColumnCount() const
{
    return static_cast<int>(Opened().Columns().size());
}

Field Recordset::operator[](QStringView name) const
{
    return {m_impl.get(), ColumnIndex(name)};
}

Field Recordset::operator[](int index) const
{
    return {&Opened(index), index};
}

bool Recordset::IsNull(int column) const
{
    return Opened(column).IsNull(column);
}

QString Recordset::Text(int column) const
{
    return Opened(column).Text(column);
}

QByteArrayView Recordset::Utf8(int column) const
{
    return Opened(column).Utf8(column);
}

std::int64_t Recordset::Integer(int column) const
{
    return Opened(column).Integer(column);
}

double Recordset::Number(int column) const
{
    return Opened(column).Number(column);
}

void Recordset::AddNew()
{
    Opened().AddNew();
}

void Recordset::Update()
{
    Opened().Update();
}

void Recordset::CancelUpdate()
{
    Opened().CancelUpdate();
}

void Recordset::Delete()
{
    Opened().Delete();
}

QString Field::Name() const
{
    return m_owner->Columns()[m_index].name;
}

qsizetype Field::DefinedSize() const
{
    return m_owner->Columns()[m_index].type.definedSize;
}

qint64 Field::ActualSize() const
{
    return m_owner->ActualSize(m_index);
}

bool Field::IsNull() const
{
    return m_owner->IsNull(m_index);
}

Value Field::Get() const
{
    return m_owner->Get(m_index);
}

void Field::Set(const Value& value) const
{
    m_owner->Set(m_index, value);
}

QByteArray Field::GetChunk(qint64 size) const
{
    return m_owner->GetChunk(m_index, size);
}

void Field::AppendChunk(const QByteArray& bytes) const
{
    m_owner->AppendChunk(m_index, bytes);
}

} // namespace kelvado
