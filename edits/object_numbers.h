#pragma once

#include <cstdint>
#include <map>

#include "edits/pending_edits.h"

namespace IFC {

/// `file` with objects under other instance numbers. wanted: new number by present one. Where two
/// objects would have the same number, both keep the one that they have.
FileEdits renumbered(const FileEdits& file, std::map<std::int32_t, std::int32_t> wanted);

}  // namespace IFC
