#pragma once

#include <QString>

namespace kelvado {

/// Makes the template package `target` of the files in `folder`: "package.ini" (its flags), "header.html", "body.html", "footer.html",
/// "detail.html", "style.css", "thumbnail.jpg", "preview.jpg", and below "files" what lies beside the pages.
void MakePackage(const QString& folder, const QString& target);

} // namespace kelvado
