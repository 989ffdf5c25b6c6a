# What an installed ZyCore consists of, and how other projects find it.
