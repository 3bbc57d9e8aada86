// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <QString>

#include <rapidjson/fwd.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zarn {

class UserTunings;
struct TuningStores;

/// The named tunings that are offered to the user: the built-in ones (core store) and the user's
/// own (user store), which are kept in a file.
///
/// A tuning is shared with whoever took it out and may be changed there, renamed and re-stringed
/// too. So searches look at the tunings as they are, in the order of the stores: the core store
/// before the user store, and in each by the string count at which a tuning was added and then by
/// id, which is the order of adding. Where a string count is sought, those that were added with it
/// come before those that have it since. Roles are given as a mask of `CoreRole` and `UserRole`.
///
/// Not locked: it belongs to one thread at a time.
class ZARNCORE_EXPORT GuitarTuningLibrary {
public:
    /// A role's tunings by string count and id.
    using Store = std::map<unsigned, std::map<unsigned, std::shared_ptr<GuitarTuning>>>;
    using Tunings = std::vector<std::shared_ptr<GuitarTuning>>;

    static constexpr unsigned allRoles = GuitarTuning::CoreRole | GuitarTuning::UserRole;

    /// Both stores empty; nothing is read.
    GuitarTuningLibrary();
    GuitarTuningLibrary(const GuitarTuningLibrary &) = delete;
    GuitarTuningLibrary &operator=(const GuitarTuningLibrary &) = delete;
    ~GuitarTuningLibrary();

    // Filling.

    /// Adds an array of tunings, as `GuitarTuning::parse` reads them, to the core store. Raises a
    /// `CoreException` that begins with the place ("tunings[12]: ..."), and adds nothing, when one
    /// of them is broken.
    void parse(const rapidjson::Value &tunings);

    /// Gives the tuning the role and puts it into the store of that role, out of the place where
    /// it stood before; a role without a store only takes it out. Nothing happens for null. A
    /// change of the user store is saved at once.
    void addTuning(const std::shared_ptr<GuitarTuning> &tuning, GuitarTuning::Role role);

    /// Takes a tuning out of the store of exactly this role, also when its strings were changed
    /// since it was added. Its role stays. A change of the user store is saved at once.
    void removeTuning(unsigned id, unsigned role);

    // The user's file; what fails is logged on "zarn.core" with file and reason.

    /// "userTuningLibrary.xml" in the application's writable data folder.
    static QString userTuningsPath();

    /// Fills the user store from the file, in place of what it held; empty when the file is
    /// missing or is no list of tunings. Strings that do not exist, numbers that are none and
    /// tunings with more than `GuitarTuning::maximumStringCount` strings are left out, an unknown
    /// instrument is `Undefined`.
    ///
    /// The file is saved after every tuning that was read, which brings it into its usual form; a
    /// file that has it is not written. What was not read yet stands behind the others meanwhile,
    /// so that a crash loses nothing.
    void loadUserTunings();

    /// Writes all user tunings, with the computed `midiOffset()`. The new file takes the place of
    /// the old one when it is complete on the disk. Tunings that another program has put into the
    /// file since it was read or written here join the user store first. A file with anything in
    /// it that is no tuning is kept beside it, as "userTuningLibrary.kept.xml"; when that fails,
    /// it is not replaced.
    void saveUserTunings();

    // Searches; the first match in the order of the stores, or null.

    /// In both stores.
    std::shared_ptr<GuitarTuning> findGuitarTuning(const std::string &name,
                                                   const std::vector<int> &midiNumbers) const;
    /// Null also when there are not `stringCount` pitches.
    std::shared_ptr<GuitarTuning> findGuitarTuning(const std::vector<int> &midiNumbers,
                                                   unsigned stringCount, unsigned roles) const;

    /// A tuning like another one, compared on `CompareOption`s; a mode without a name means
    /// `operator==`. The stores of the mask are searched, that of `role` first.
    std::shared_ptr<GuitarTuning> findGuitarTuning(const GuitarTuning &tuning, unsigned options,
                                                   unsigned roles,
                                                   GuitarTuning::ComparisonMode mode,
                                                   GuitarTuning::Role role) const;

    /// The string count may be the present one or that at which the tuning was added.
    std::shared_ptr<GuitarTuning> findGuitarTuning(unsigned id, unsigned stringCount,
                                                   unsigned roles) const;
    std::shared_ptr<GuitarTuning> findGuitarTuning(unsigned id, unsigned roles) const;
    std::shared_ptr<GuitarTuning> findGuitarTuning(const std::string &name,
                                                   GuitarTuning::Instrument instrument,
                                                   unsigned stringCount, unsigned roles) const;

    /// All that match, by their present string count, in the order of the stores. The built-in
    /// tunings of an instrument begin with its standard tuning.
    Tunings getTunings(unsigned roles) const;
    Tunings getTunings(unsigned stringCount, unsigned roles) const;
    Tunings getTunings(GuitarTuning::Instrument instrument, unsigned roles) const;
    Tunings getTunings(GuitarTuning::Instrument instrument, unsigned stringCount,
                       unsigned roles) const;

    /// The first of `getTunings`, or null.
    std::shared_ptr<GuitarTuning> defaultTuning(unsigned stringCount, unsigned roles) const;
    std::shared_ptr<GuitarTuning> defaultTuning(GuitarTuning::Instrument instrument,
                                                unsigned stringCount, unsigned roles) const;

    /// Instruments that have a tuning in any store, in the order of their values.
    std::vector<GuitarTuning::Instrument> instruments() const;
    /// String counts that any tuning has, ascending.
    std::vector<unsigned> stringCounts() const;

    /// Name of the first tuning with the same pitches and instrument, built-in before the user's;
    /// "Custom", translated, when there is none.
    QString tuningDisplayName(const GuitarTuning &tuning) const;

private:
    std::unique_ptr<TuningStores> _stores;
    std::unique_ptr<UserTunings> _userTunings;
};

} // namespace zarn
