#pragma once

/// What a host operation answers. `eOk` is zero; every other value says why nothing was done.
namespace Acad
{
enum ErrorStatus
{
    eOk = 0,
    eNotImplementedYet,
    eInvalidInput,
    eOutOfRange,
    eOutOfMemory,
    eNoDatabase,
    eNotInDatabase,
    eAlreadyInDb,
    eNullObjectId,
    eNullObjectPointer,
    ePermanentlyErased,
    eWasErased,
    eNotThatKindOfClass,
    eNotOpenForRead,
    eNotOpenForWrite,
    eWasOpenForRead,
    eWasOpenForWrite,
    eOnLockedLayer,
    eLockViolation,
    eKeyNotFound,
    eInvalidKey,
    eDuplicateRecordName,
    eRegappIdNotFound,
    eUnknownHandle,
    eFileNotFound,
    eFileAccessErr,
    eFilerError,
    eBadDxfSequence,
    eSelfReference,
    eInvalidExtents,
    eDegenerateGeometry,
    eNoDocument
};
} // namespace Acad
