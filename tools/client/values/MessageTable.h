#pragma once

#include "ValueTable.h"

#include <google/protobuf/message.h>

#include <vector>

/// @brief A message's own fields, or a list of messages in it, by the messages' reflection.
class MessageTable : public ValueTable
{
public:
    using Message = google::protobuf::Message;
    using Field = google::protobuf::FieldDescriptor;

    /// The rows are the messages of @p list, a repeated field of @p whole; without one @p whole is the one row.
    explicit MessageTable(const std::shared_ptr<const Message> &whole, const Field *list = nullptr);

    /// The lists of messages among the fields of @p message.
    static std::vector<const Field *> listsIn(const Message &message);

    int rowCount() const override;
    QVariant cell(int row, int column) const override;
    quint64 fingerprint(int row) const override;
    QJsonObject argument(int row) const override;
    bool sharesRowsWith(const ValueTable &other) const override;

private:
    /// From the row's message down to the field, through the messages between.
    using Path = std::vector<const Field *>;

    MessageTable(std::shared_ptr<const Message> whole, const Field *list, const std::vector<Path> &paths);
    const Message &holderOf(const Path &path, int row) const; ///< the message that has the field at the path's end
    static std::vector<Path> pathsIn(const google::protobuf::Descriptor *type);

    const std::shared_ptr<const Message> m_whole;
    const std::vector<Path> m_paths; // of the columns
    std::vector<const Message *> m_rows;
};
