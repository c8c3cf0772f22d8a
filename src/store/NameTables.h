#pragma once

#include "core/Literals.h"

#include <QString>

namespace kelvado {

/// A table of names and its links to the films. The column of the names is called like the table.
struct NameTable
{
    QString table;
    QString idColumn;
    QString linkTable;
};

inline const NameTable kGenre{u"Genre"_s, u"Genre_ID"_s, u"GenreLink"_s};
inline const NameTable kWriter{u"Writer"_s, u"Writer_ID"_s, u"WriterLink"_s};
inline const NameTable kDirector{u"Director"_s, u"Director_ID"_s, u"DirectorLink"_s};
inline const NameTable kProducer{u"Producer"_s, u"Producer_ID"_s, u"ProducerLink"_s};
inline const NameTable kActor{u"Actor"_s, u"Actor_ID"_s, u"ActorLink"_s};
inline const NameTable kCompany{u"Company"_s, u"Company_ID"_s, u"CompanyLink"_s};

} // namespace kelvado
