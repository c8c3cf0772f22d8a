#include "panels/PersonKinds.h"

namespace kelvado {

const std::array<PersonKind, kPersonKinds>& PersonKinds()
{
    static const std::array<PersonKind, kPersonKinds> kinds{{
        {kActor, "Character"_L1, &FilmPerson::Character, &FilmRecord::Actors, "Actor"_L1, "Character"_L1, "Add Actor"_L1, "Remove Actor"_L1,
         "Edit Character"_L1, "Character Edit"_L1, "Existing Actors"_L1, "Character Name"_L1},
        {kWriter, "Extended"_L1, &FilmPerson::Extended, &FilmRecord::Writers, "Writer"_L1, ""_L1, "Add Writer"_L1, "Remove Writer"_L1,
         "Edit Details"_L1, "Details Edit"_L1, "Existing Writers"_L1, "Details"_L1},
        {kDirector, "Extended"_L1, &FilmPerson::Extended, &FilmRecord::Directors, "Director"_L1, ""_L1, "Add Director"_L1,
         "Remove Director"_L1, "Edit Details"_L1, "Details Edit"_L1, "Existing Directors"_L1, "Details"_L1},
        {kProducer, "Extended"_L1, &FilmPerson::Extended, &FilmRecord::Producers, "Producer"_L1, ""_L1, "Add Producer"_L1,
         "Remove Producer"_L1, "Edit Details"_L1, "Details Edit"_L1, "Existing Producers"_L1, "Details"_L1},
    }};
    return kinds;
}

} // namespace kelvado
