#pragma once

#include <cstdint>
#include <string>

#include "core/files/watched.h"

class CProfile;
class CSequentialInput;

/// What every stored record has, weapon, accessory, unit or squad: its identity, and the steps of its file operations
/// that are the same for all. A setter of a field that enters the cost recomputes at once.
class CRecord {
  public:
    virtual ~CRecord() = default;

    const std::string& Name() const { return *name_; }
    void SetName(const std::string& name) { name_ = name; }
    /// From now on sorted lists notice a change of the name.
    void WatchName() { name_.Watch(); }
    const std::string& Descr() const { return descr_; }
    void SetDescr(const std::string& descr) { descr_ = descr; }
    /// Identity inside a keyed list; empty where the list isn't indexed.
    const std::string& Key() const { return key_; }
    void SetKey(const std::string& key) { key_ = key; }
    /// False makes a summary, which holds identification and costs only.
    bool FullInfo() const { return fullInfo_ != 0; }
    void SetFullInfo(bool full);
    std::int16_t Version() const { return version_; }
    void SetVersion(std::int16_t version);

    virtual void CalculatePointCost() = 0;

  protected:
    CRecord() = default;
    CRecord(const CRecord&) = default;
    CRecord& operator=(const CRecord&) = default;

    bool WriteIdentity(CProfile& profile, const std::string& section, const char* tag) const;
    bool ReadIdentity(CProfile& profile, const std::string& section, const char* tag);
    /// The header of an old record; gives its version.
    std::int16_t ImportIdentity(CSequentialInput& file);
    /// The two costs that stand together in one key.
    static bool WritePoints(CProfile& profile, const std::string& section, double first, double second);
    static bool ReadPoints(CProfile& profile, const std::string& section, double& first, double& second);

    std::string descr_;
    std::string key_;
    // The word as it was set or read: any word but 0 is true, and a file gets back what it held.
    std::int16_t fullInfo_ = 1;
    std::int16_t version_ = 2;

  private:
    CWatched<std::string> name_;
};
