// SPDX-License-Identifier: BSD-3-Clause
// An action that writes down what happens to it.
#pragma once

#include <ZyAction.h>
#include <ZyString.h>
#include <ZyUniquePtr.h>

#include <string>
#include <utility>

/** Appends its name to a record: "+a" done, "-a" undone, "~a" destroyed. */
class RecordedAction : public ZyAction
{
public:
    RecordedAction(std::string & record, std::string name) : m_record(record), m_name(std::move(name)) {}
    ~RecordedAction() override { m_record += "~" + m_name; }

    void performAction() override { m_record += "+" + m_name; }
    void performUndo() override { m_record += "-" + m_name; }

private:
    std::string & m_record;
    std::string m_name;
};

/** A new action for a group or a history. */
inline ZyUniquePtr<ZyAction> recorded(std::string & record, std::string const & name)
{
    return ZyUniquePtr<ZyAction>(new RecordedAction(record, name));
}

/** What happened since the last call. */
inline std::string taken(std::string & record)
{
    return std::exchange(record, std::string());
}
