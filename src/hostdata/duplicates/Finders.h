#pragma once

#include "platform/DuplicateFinders.h"

#include <memory>

namespace wmoutlook {

// The finders of the host's import library: whether an item that comes in is a record that the host has already.
//
// What is compared: the name, else the e-mail address (textually), else the telephone (digits alone), each when its setting is
// on and a value was given; a search without any finds nothing. Among equals the lowest number wins.
//
// A finder reads the tables of its own database at the first search of a run and answers from an index. Between two items
// (clear) it reads the rows that were added since, so that the second item of a new company finds what the first one made;
// rows that others change are seen in the next run. A table that cannot be read goes to the error handler and is read again
// at the next search.

/// Kind 1 compares names without regard to case and surrounding blanks; kind 2 normalised; kind 3 by likeness. Without the
/// option, companies whose client data are inactive are passed over.
[[nodiscard]] std::shared_ptr<CompanyDuplicateFinder> makeCompanyDuplicateFinder();

/// One pass, whatever the kind: the full name, or the first and last name when no full name was given. A middle name may be
/// missing or be an initial on either side. Without the option, contacts who are inactive in the last tax year that the host
/// has of them are passed over.
[[nodiscard]] std::shared_ptr<ContactDuplicateFinder> makeContactDuplicateFinder();

}  // namespace wmoutlook
