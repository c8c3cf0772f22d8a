-- The blank catalog: its tables and the rows that every new catalog begins with.
--
-- Declared types carry what the program needs to know of a column:
--   VARCHAR(n)  text of at most n characters        TEXT      text without a limit (memo)
--   NUMTEXT(n)  text of at most n characters that is compared as a number; "9.0" and "0047478" stay as they are
--   LONG        whole number                        NUMBER    number
--   BOOLEAN     0 or 1                              CURRENCY  amount, at most four decimals
--   DATE        yyyy-mm-dd                          LONGBLOB  bytes
-- Numbered keys are AUTOINCREMENT, so that an id never comes back.

-- The mark of a catalog in the engine's file header: "KVDC".
PRAGMA application_id = 0x4B564443;

BEGIN;

CREATE TABLE Movie (
    Movie_ID       INTEGER PRIMARY KEY AUTOINCREMENT,
    Title          VARCHAR(255) COLLATE NOCASE,
    TitleNY        VARCHAR(255) COLLATE NOCASE,
    Year           NUMBER,
    IMDB           NUMTEXT(20) COLLATE NOCASE,
    iSONEWS        VARCHAR(255) COLLATE NOCASE,
    Rating         NUMTEXT(20) COLLATE NOCASE,
    Votes          NUMTEXT(20) COLLATE NOCASE,
    Rated          VARCHAR(100) COLLATE NOCASE,
    Runtime        VARCHAR(100) COLLATE NOCASE,
    Language       VARCHAR(255) COLLATE NOCASE,
    SubLanguage    VARCHAR(255) COLLATE NOCASE,
    SubTitles      VARCHAR(255) COLLATE NOCASE,
    Format         VARCHAR(50) COLLATE NOCASE,
    Number         NUMBER,
    "Index"        VARCHAR(100) COLLATE NOCASE,
    Plot           TEXT COLLATE NOCASE,
    "Group"        VARCHAR(100) COLLATE NOCASE,
    Filesize       VARCHAR(50) COLLATE NOCASE,
    Filename       VARCHAR(255) COLLATE NOCASE,
    Studio         VARCHAR(100) COLLATE NOCASE,
    Quality        VARCHAR(100) COLLATE NOCASE,
    Resolution     VARCHAR(50) COLLATE NOCASE,
    AudBitrate     VARCHAR(50) COLLATE NOCASE,
    VidBitrate     VARCHAR(50) COLLATE NOCASE,
    AudType        VARCHAR(100) COLLATE NOCASE,
    VidType        VARCHAR(100) COLLATE NOCASE,
    AudChannels    NUMTEXT(20) COLLATE NOCASE,
    Comments       TEXT COLLATE NOCASE,
    FileNotes      TEXT COLLATE NOCASE,
    Custom1        VARCHAR(255) COLLATE NOCASE,
    Custom2        VARCHAR(255) COLLATE NOCASE,
    Custom3        VARCHAR(255) COLLATE NOCASE,
    Color          VARCHAR(100) COLLATE NOCASE,
    Country        VARCHAR(100) COLLATE NOCASE,
    PurchasePrice  CURRENCY,
    PurchasedWhere VARCHAR(255) COLLATE NOCASE,
    LastViewing    DATE,
    SeenIt         BOOLEAN DEFAULT 0,
    MyRating       NUMBER,
    MyRatingNotes  TEXT COLLATE NOCASE,
    UserURL1       VARCHAR(500) COLLATE NOCASE,
    UserURL2       VARCHAR(500) COLLATE NOCASE,
    TrailerURL     VARCHAR(500) COLLATE NOCASE,
    Nfo            TEXT COLLATE NOCASE,
    IsRequest      BOOLEAN DEFAULT 0,
    Image_ID       LONG DEFAULT 0,
    ImageBack_ID   LONG DEFAULT 0,
    Loan_ID        LONG DEFAULT 0,
    MovieNight     LONG DEFAULT 0
);
-- Holds all that the tree reads of a film in the everyday sorts, so that filling it never touches the wide rows.
CREATE INDEX Movie_Title ON Movie (Title, Format, Loan_ID, Year, MovieNight);
CREATE INDEX Movie_Year ON Movie (Year);
CREATE INDEX Movie_Format ON Movie (Format);
CREATE INDEX Movie_Loan_ID ON Movie (Loan_ID);

CREATE TABLE Images (
    Image_ID   INTEGER PRIMARY KEY AUTOINCREMENT,
    Movie_ID   LONG,
    Image      LONGBLOB,
    Extention  VARCHAR(10) COLLATE NOCASE,
    Image_Link VARCHAR(500) COLLATE NOCASE
);

CREATE TABLE Genre (
    Genre_ID INTEGER PRIMARY KEY AUTOINCREMENT,
    Genre    VARCHAR(100) COLLATE NOCASE
);
CREATE INDEX Genre_Genre ON Genre (Genre);

CREATE TABLE Features (
    Feature_ID INTEGER PRIMARY KEY AUTOINCREMENT,
    Feature    VARCHAR(100) COLLATE NOCASE
);

CREATE TABLE Actor (
    Actor_ID      INTEGER PRIMARY KEY AUTOINCREMENT,
    Actor         VARCHAR(100) COLLATE NOCASE,
    IMDB_LINK     VARCHAR(255) COLLATE NOCASE,
    Image_ID      LONG DEFAULT 0,
    BirthName     VARCHAR(255) COLLATE NOCASE,
    BirthDate     VARCHAR(100) COLLATE NOCASE,
    BirthLocation VARCHAR(255) COLLATE NOCASE,
    Height        VARCHAR(100) COLLATE NOCASE,
    Biography     TEXT COLLATE NOCASE,
    Film_History  TEXT COLLATE NOCASE,
    User_Comments TEXT COLLATE NOCASE,
    IsRetreived   LONG DEFAULT 0
);
CREATE INDEX Actor_Actor ON Actor (Actor);

CREATE TABLE Writer (
    Writer_ID INTEGER PRIMARY KEY AUTOINCREMENT,
    Writer    VARCHAR(100) COLLATE NOCASE,
    IMDB_LINK VARCHAR(255) COLLATE NOCASE
);
CREATE INDEX Writer_Writer ON Writer (Writer);

CREATE TABLE Director (
    Director_ID INTEGER PRIMARY KEY AUTOINCREMENT,
    Director    VARCHAR(100) COLLATE NOCASE,
    IMDB_LINK   VARCHAR(255) COLLATE NOCASE
);
CREATE INDEX Director_Director ON Director (Director);

CREATE TABLE Producer (
    Producer_ID INTEGER PRIMARY KEY AUTOINCREMENT,
    Producer    VARCHAR(100) COLLATE NOCASE,
    IMDB_LINK   VARCHAR(255) COLLATE NOCASE
);
CREATE INDEX Producer_Producer ON Producer (Producer);

CREATE TABLE Company (
    Company_ID INTEGER PRIMARY KEY AUTOINCREMENT,
    Company    VARCHAR(100) COLLATE NOCASE
);
CREATE INDEX Company_Company ON Company (Company);

-- Link rows are read in the order in which they were stored: an index on the film alone keeps that order.
CREATE TABLE GenreLink (Movie_ID LONG, Genre_ID LONG);
CREATE INDEX GenreLink_Movie_ID ON GenreLink (Movie_ID);
CREATE INDEX GenreLink_Genre_ID ON GenreLink (Genre_ID);

CREATE TABLE ActorLink (
    Movie_ID  LONG,
    Actor_ID  LONG,
    Character VARCHAR(255) COLLATE NOCASE,
    "Order"   LONG
);
CREATE INDEX ActorLink_Movie_ID ON ActorLink (Movie_ID);
CREATE INDEX ActorLink_Actor_ID ON ActorLink (Actor_ID);

CREATE TABLE WriterLink (
    Movie_ID  LONG,
    Writer_ID LONG,
    Extended  VARCHAR(255) COLLATE NOCASE,
    "Order"   LONG
);
CREATE INDEX WriterLink_Movie_ID ON WriterLink (Movie_ID);
CREATE INDEX WriterLink_Writer_ID ON WriterLink (Writer_ID);

CREATE TABLE DirectorLink (
    Movie_ID    LONG,
    Director_ID LONG,
    Extended    VARCHAR(255) COLLATE NOCASE,
    "Order"     LONG
);
CREATE INDEX DirectorLink_Movie_ID ON DirectorLink (Movie_ID);
CREATE INDEX DirectorLink_Director_ID ON DirectorLink (Director_ID);

CREATE TABLE ProducerLink (
    Movie_ID    LONG,
    Producer_ID LONG,
    Extended    VARCHAR(255) COLLATE NOCASE,
    "Order"     LONG
);
CREATE INDEX ProducerLink_Movie_ID ON ProducerLink (Movie_ID);
CREATE INDEX ProducerLink_Producer_ID ON ProducerLink (Producer_ID);

CREATE TABLE CompanyLink (
    Movie_ID   LONG,
    Company_ID LONG,
    Type       VARCHAR(255) COLLATE NOCASE,
    Extended   VARCHAR(255) COLLATE NOCASE
);
CREATE INDEX CompanyLink_Movie_ID ON CompanyLink (Movie_ID);
CREATE INDEX CompanyLink_Company_ID ON CompanyLink (Company_ID);

CREATE TABLE Feature_Link (Movie_ID LONG, Feature_ID LONG);
CREATE INDEX Feature_Link_Movie_ID ON Feature_Link (Movie_ID);
CREATE INDEX Feature_Link_Feature_ID ON Feature_Link (Feature_ID);

CREATE TABLE Loans (
    Loan_ID    INTEGER PRIMARY KEY AUTOINCREMENT,
    Movie_ID   LONG,
    LoanedTo   VARCHAR(100) COLLATE NOCASE,
    LoanDate   DATE,
    DueDate    DATE,
    ReturnDate DATE,
    Notes      TEXT COLLATE NOCASE
);
CREATE INDEX Loans_Movie_ID ON Loans (Movie_ID);

-- The list editor shows the columns behind the first one, so these tables have a row number in front.
CREATE TABLE VideoCodecs (
    ID          INTEGER PRIMARY KEY AUTOINCREMENT,
    Codec_ID    VARCHAR(10) COLLATE NOCASE,
    DisplayName VARCHAR(100) COLLATE NOCASE
);
CREATE INDEX VideoCodecs_Codec_ID ON VideoCodecs (Codec_ID);

CREATE TABLE AudioCodecs (
    ID          INTEGER PRIMARY KEY AUTOINCREMENT,
    Codec_ID    LONG,
    DisplayName VARCHAR(100) COLLATE NOCASE
);
CREATE INDEX AudioCodecs_Codec_ID ON AudioCodecs (Codec_ID);

INSERT INTO Genre (Genre) VALUES
    ('Action'), ('Adult'), ('Adventure'), ('Animation'), ('Biography'), ('Comedy'), ('Crime'), ('Documentary'), ('Drama'), ('Family'),
    ('Fantasy'), ('Film-Noir'), ('History'), ('Horror'), ('Music'), ('Musical'), ('Mystery'), ('Romance'), ('Sci-Fi'), ('Short'), ('Sport'),
    ('Thriller'), ('War'), ('Western');

INSERT INTO Features (Feature) VALUES
    ('Scene Access'), ('Interactive Menus'), ('Audio Commentary'), ('Deleted Scenes'), ('Alternate Ending'), ('Making Of'), ('Interviews'),
    ('Trailers'), ('TV Spots'), ('Music Videos'), ('Bloopers'), ('Storyboards'), ('Photo Gallery'), ('Cast and Crew Biographies'),
    ('Production Notes'), ('Isolated Score'), ('Multiple Angles'), ('DVD-ROM Content'), ('Games'), ('Easter Eggs'), ('Booklet');

INSERT INTO VideoCodecs (Codec_ID, DisplayName) VALUES
    ('DIV3', 'DivX 3 Low-Motion'), ('DIV4', 'DivX 3 Fast-Motion'), ('DIVX', 'DivX 4'), ('DX50', 'DivX 5'), ('XVID', 'XviD'),
    ('MPG4', 'Microsoft MPEG-4 v1'), ('MP42', 'Microsoft MPEG-4 v2'), ('MP43', 'Microsoft MPEG-4 v3'), ('MP4S', 'Microsoft ISO MPEG-4'),
    ('MP4V', 'MPEG-4'), ('FMP4', 'MPEG-4 (FFmpeg)'), ('3IV2', '3ivx'), ('BLZ0', 'Blizzard DivX'),
    ('MPG1', 'MPEG-1'), ('MPG2', 'MPEG-2'), ('H263', 'H.263'), ('H264', 'H.264'), ('X264', 'H.264 (x264)'), ('AVC1', 'H.264 (AVC)'),
    ('HEVC', 'H.265'), ('WMV1', 'Windows Media Video 7'), ('WMV2', 'Windows Media Video 8'), ('WMV3', 'Windows Media Video 9'),
    ('VP30', 'On2 VP3'), ('VP31', 'On2 VP3.1'), ('VP60', 'On2 VP6'), ('VP61', 'On2 VP6.1'), ('VP62', 'On2 VP6.2'),
    ('IV31', 'Intel Indeo 3.1'), ('IV32', 'Intel Indeo 3.2'), ('IV41', 'Intel Indeo 4.1'), ('IV50', 'Intel Indeo 5.0'),
    ('CVID', 'Cinepak'), ('CRAM', 'Microsoft Video 1'), ('MSVC', 'Microsoft Video 1'), ('MRLE', 'Microsoft RLE'), ('MJPG', 'Motion JPEG'),
    ('DVSD', 'DV'), ('HFYU', 'HuffYUV'), ('VP80', 'VP8'), ('VP90', 'VP9'), ('AV01', 'AV1'), ('THEO', 'Theora'),
    ('FLV1', 'Sorenson Spark'), ('WVC1', 'Windows Media Video 9 Advanced'), ('I420', 'Uncompressed I420'),
    ('YV12', 'Uncompressed YV12'), ('YUY2', 'Uncompressed YUY2');

-- Format tags, as signed numbers of 16 bits.
INSERT INTO AudioCodecs (Codec_ID, DisplayName) VALUES
    (1, 'PCM'), (2, 'Microsoft ADPCM'), (3, 'IEEE Float PCM'), (6, 'A-law'), (7, 'mu-law'), (17, 'IMA ADPCM'), (34, 'TrueSpeech'),
    (49, 'GSM 6.10'), (66, 'G.723.1'), (80, 'MPEG-1 Layer 2'), (85, 'MPEG-1 Layer 3'), (255, 'AAC'), (304, 'ACELP.net'),
    (352, 'Windows Media Audio 1'), (353, 'Windows Media Audio 2'), (354, 'Windows Media Audio 9 Professional'),
    (355, 'Windows Media Audio 9 Lossless'), (1025, 'Intel Music Coder'), (8192, 'AC-3'), (8193, 'DTS'), (22127, 'Ogg Vorbis'),
    (26447, 'Ogg Vorbis 1'), (26448, 'Ogg Vorbis 2'), (26449, 'Ogg Vorbis 3'), (26479, 'Ogg Vorbis 1+'), (26480, 'Ogg Vorbis 2+'),
    (26481, 'Ogg Vorbis 3+'), (28751, 'Opus'), (27745, 'ALAC'), (8448, 'E-AC-3'), (8449, 'Dolby TrueHD'), (-3668, 'FLAC'),
    (-2, 'Extensible');

COMMIT;
