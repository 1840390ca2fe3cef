#pragma once

#include "tolvan/JobTypeInfo.h"
#include "tolvan/Message.h"
#include "vesta/String.h"

#include <vector>

class Job;

/// A job that the user is about to submit: its name, its priority and a value for each parameter of
/// its type. Without a window.
class JobForm
{
public:
    static constexpr int    k_MostPriority = 100;
    static constexpr size_t k_MostName = 200;         ///< Bytes.
    static constexpr size_t k_MostValue = 100u << 10; ///< Bytes: a word of a command line.
    static constexpr size_t k_MostInAll = 250u << 10; ///< Bytes: what the master takes.

    /// Begins with the type's defaults.
    explicit JobForm(boost::shared_ptr<const JobTypeInfo> type);
    /// Begins with what that job was submitted with, as far as its type still has it.
    JobForm(boost::shared_ptr<const JobTypeInfo> type, const Job& job);

    const JobTypeInfo& Type() const { return *m_Type; }

    String              name;     ///< Empty: the type's.
    String              priority; ///< A number from 0 to 100.
    std::vector<String> values;   ///< One for each parameter of the type.

    /// Where `FindProblem` found something.
    enum Field
    {
        kNone = -3,
        kName = -2,
        kPriority = -1 ///< 0 and up: the parameter of that index.
    };
    /// The first thing that is wrong; its text says so to the user, and is empty if nothing is.
    String FindProblem(int& field) const;

    /// What is wrong with a text that is to be a priority; empty if nothing is.
    static String PriorityProblem(const String& text);

    /// The request to the master.
    Message ToMessage(const String& request) const;

private:
    String NameProblem() const;
    String ValueProblem(size_t index) const;
    String ValueOf(const String& param) const;

    boost::shared_ptr<const JobTypeInfo> m_Type;
};
