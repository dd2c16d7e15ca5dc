// The exception of an operation.
#pragma once

#include <quorvel/framework/exceptions.h>

// The cause of the file or archive exception that the operation throws; 0 (none) without one.
// Deletes the exception.
template <class Exception, class Operation>
int CauseOf(Operation operation) {
    try {
        operation();
    } catch (Exception* exception) {
        const int cause = exception->m_cause;
        exception->Delete();
        return cause;
    }
    return Exception::none;
}
