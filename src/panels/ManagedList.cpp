#include "panels/ManagedList.h"

#include "core/Literals.h"
#include "core/RuntimeError.h"
#include "store/Recordset.h"

namespace kelvado {

namespace {

constexpr int kShownColumns = 2;
const QString kNothing = u" "_s; // what a Null shows as

// Leads to the row with this key.
void OpenRow(const QString& table, qint64 key, Recordset& rows, Connection& connection)
{
    rows.Open(u"SELECT * FROM "_s + table + u" WHERE ID = "_s + QString::number(key), connection);
    if (rows.Eof())
        throw RuntimeError(kErrNoCurrentRecord, u"This entry is no longer in the list"_s);
}

// The codec reader takes the first row of a code, so a second one would never be found.
void RequireFreeCode(const QString& table, const Value& code, qint64 key, Connection& connection)
{
    Recordset same;
    same.Open(u"SELECT ID FROM "_s + table + u" WHERE Codec_ID = ? AND ID <> ?"_s, {code, Value(key)}, connection);
    if (!same.Eof())
        throw RuntimeError(kErrInvalidCall, u"There is an entry for %1 already"_s.arg(code.Text()));
}

void Put(const QString& table, const QStringList& texts, Recordset& row, Connection& connection)
{
    for (int i = 0; i < kShownColumns; ++i) {
        const Field field = row[i + 1];
        QString text = texts.value(i).trimmed();
        if (text.isEmpty())
            throw RuntimeError(kErrInvalidCall, u"%1 is missing"_s.arg(field.Name()));
        if (i == 0)
            text = text.toUpper();
        try {
            field.Set(text);
        } catch (const RuntimeError& error) {
            if (error.Number() != kErrTypeMismatch)
                throw;
            throw RuntimeError(kErrTypeMismatch, u"%1 is a number, which \"%2\" is not"_s.arg(field.Name(), text));
        }
    }
    RequireFreeCode(table, row[1].Get(), row.Integer(0), connection);
}

} // namespace

ManagedList List_Refresh(const QString& table, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset rows;
    rows.Open(u"SELECT * FROM "_s + table, connection);
    ManagedList list;
    for (int i = 1; i <= kShownColumns; ++i) {
        list.heads << rows[i].Name();
        list.limits.push_back(rows[i].DefinedSize());
    }
    for (; !rows.Eof(); rows.MoveNext()) {
        TableRow row{rows.Integer(0), {}};
        for (int i = 1; i <= kShownColumns; ++i)
            row.texts << (rows.IsNull(i) ? kNothing : rows.Text(i));
        list.rows.push_back(std::move(row));
    }
    return list;
}

qint64 AddListRow(const QString& table, const QStringList& texts, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset rows;
    rows.Open(u"SELECT * FROM "_s + table, connection);
    rows.AddNew();
    const qint64 key = rows[0].Get().Integer();
    Put(table, texts, rows, connection);
    rows.Update();
    rows.Close();
    connection.Close();
    return key;
}

void ChangeListRow(const QString& table, qint64 key, const QStringList& texts, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    Recordset row;
    OpenRow(table, key, row, connection);
    Put(table, texts, row, connection);
    row.Update();
    row.Close();
    connection.Close();
}

void DeleteListRow(const QString& table, qint64 key, const QString& catalogPath)
{
    Connection connection = OpenCatalog(catalogPath);
    connection.Execute(u"DELETE FROM "_s + table + u" WHERE ID = ?"_s, {Value(key)});
    connection.Close();
}

} // namespace kelvado
