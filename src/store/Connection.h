#pragma once

#include "store/Value.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>

namespace kelvado {

class ConnectionImpl;

/// One connection to a catalog, for the length of one operation, made by `OpenCatalog`. Opening it reads nothing but the file's existence.
/// A write transaction begins with the first write and is committed by `Close`, also where the operation failed half-way: what was
/// stored stays. While no connection is open, the catalog is a single file.
class Connection
{
public:
    Connection();
    /// Closes; a failing commit is not reported from here.
    ~Connection();
    Connection(Connection&&) noexcept;
    /// Closes what was open as the destructor does.
    Connection& operator=(Connection&&) noexcept;

    bool IsOpen() const;
    /// Commits and closes. Raises where the commit fails (a full disk) or where the engine had to undo the operation's writes before;
    /// the connection is closed all the same. Open recordsets of the connection are closed with it.
    void Close();

    /// Runs one statement that returns no rows, given in the catalog's own dialect ("DELETE FROM GenreLink WHERE …"). Returns the number
    /// of rows that it changed.
    qint64 Execute(const QString& sql);
    /// The same, with values for the question marks of `sql`.
    qint64 Execute(const QString& sql, const QList<Value>& values);

    /// Runs `action`. Where it raises, all that it stored is undone and what was stored before stays; the failure then goes on its way.
    /// Recordsets that `action` writes through must not outlive it.
    void AllOrNothing(const std::function<void()>& action);

    /// The path of the open file.
    QString Path() const;

private:
    void CloseQuietly() noexcept;

    friend Connection OpenCatalog(const QString& path);
    friend class Recordset;
    std::shared_ptr<ConnectionImpl> m_impl;
};

/// Opens the catalog at `path`; one that may not be written is opened for reading. Raises `kErrDatabase` with the engine's text and the
/// path where the file is missing or cannot be opened. A file that is no catalog is found out by the first query.
Connection OpenCatalog(const QString& path);

} // namespace kelvado
