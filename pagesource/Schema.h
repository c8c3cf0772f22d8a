#pragma once

namespace pagesource {

/// `user_version` of a data file; another one is not read.
constexpr int kDataVersion = 20804;

/// Lists within a column are parted by commas. Rows of `search` are numbered by `place`, the films in the order of their votes; its text
/// is a film's folded titles, each between line ends. `wholeTitle` finds
/// films by the hash of such a title, `term` says how many films hold each three characters.
constexpr const char* kTables = R"(
CREATE TABLE film(number INTEGER PRIMARY KEY, kind INTEGER NOT NULL, title TEXT NOT NULL, year INTEGER NOT NULL DEFAULT 0,
    ordinal INTEGER NOT NULL DEFAULT 0, minutes INTEGER NOT NULL DEFAULT 0, rating INTEGER NOT NULL DEFAULT 0, votes INTEGER NOT NULL DEFAULT 0,
    genres TEXT, languages TEXT, countries TEXT, certificate TEXT, colour TEXT, plot TEXT, hasPoster INTEGER NOT NULL DEFAULT 0);
CREATE TABLE otherTitle(film INTEGER, place INTEGER, title TEXT NOT NULL, region TEXT, note TEXT, PRIMARY KEY(film, place)) WITHOUT ROWID;
CREATE TABLE credit(film INTEGER, section INTEGER, place INTEGER, person INTEGER NOT NULL, note TEXT,
    PRIMARY KEY(film, section, place)) WITHOUT ROWID;
CREATE TABLE person(number INTEGER PRIMARY KEY, name TEXT NOT NULL, birthDay TEXT, birthYear INTEGER NOT NULL DEFAULT 0,
    deathYear INTEGER NOT NULL DEFAULT 0, birthPlace TEXT, birthName TEXT, height TEXT, professions TEXT, knownFor TEXT,
    biography TEXT);
CREATE TABLE company(number INTEGER PRIMARY KEY, name TEXT NOT NULL);
CREATE TABLE companyLink(film INTEGER, section INTEGER, place INTEGER, company INTEGER NOT NULL, note TEXT,
    PRIMARY KEY(film, section, place)) WITHOUT ROWID;
CREATE TABLE place(place INTEGER PRIMARY KEY, film INTEGER NOT NULL);
CREATE VIRTUAL TABLE search USING fts5(text, content='', columnsize=0, detail=none, tokenize='trigram case_sensitive 1');
CREATE TABLE wholeTitle(hash INTEGER, film INTEGER, PRIMARY KEY(hash, film)) WITHOUT ROWID;
CREATE TABLE term(term TEXT PRIMARY KEY, films INTEGER NOT NULL) WITHOUT ROWID;
)";

/// Built when all rows are there.
constexpr const char* kIndexes = R"(
CREATE VIRTUAL TABLE temp.terms USING fts5vocab(main, search, row);
INSERT INTO term SELECT term, doc FROM temp.terms;
INSERT OR IGNORE INTO wholeTitle SELECT hash, film FROM temp.titles ORDER BY hash, film;
DROP TABLE temp.titles;
CREATE INDEX credit_person ON credit(person, section);
CREATE INDEX person_name ON person(name COLLATE NOCASE);
)";

} // namespace pagesource
