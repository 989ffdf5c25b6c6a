// SPDX-License-Identifier: BSD-3-Clause
// Every class, declared ahead. tools/check_umbrella.py --write makes this file from the other headers.
#pragma once

struct DynFuncException;
struct FaultPointers;
struct OsException;
struct TandobleException;
struct XMLReportHeader;
struct XMLReportInfo;
struct XMLReportMeritFunction;
struct XMLReportParameter;
struct XMLReportSensValue;
class ZyAbstractParallelProblem;
class ZyAction;
class ZyActionGroup;
class ZyApplicationProperties;
class ZyAsyncThread;
class ZyBadAllocException;
class ZyBadVariantAccessException;
class ZyBase64Converter;
class ZyBase64ConverterCore;
class ZyByteArray;
class ZyCSVFile;
class ZyCSVWriter;
class ZyCannotOpenFileException;
class ZyCaseSensitiveString;
class ZyClipboard;
class ZyColour;
class ZyCommandShell;
class ZyComparableString;
class ZyConditionVariableAbstract;
class ZyDataTable;
class ZyDataTableItem;
class ZyDataTableRow;
class ZyDateTime;
class ZyDivideByZeroException;
class ZyDomainException;
class ZyErrorLogger;
class ZyException;
class ZyExceptionInterface;
class ZyFile;
class ZyFileDevice;
class ZyFileException;
class ZyFileLockedException;
class ZyFileNotFoundException;
class ZyFilePath;
class ZyFileSaveException;
class ZyFileSystem;
class ZyFileType;
class ZyFileWriter;
class ZyGlobal;
class ZyGlobalObject;
class ZyHistogram;
class ZyIODevice;
class ZyIOException;
class ZyIOInvalidReadException;
class ZyIOInvalidWriteException;
class ZyIcon;
class ZyIconManager;
class ZyIndexOutOfBoundsException;
class ZyInvalidCallException;
class ZyInvalidCastException;
class ZyInvalidConversionException;
class ZyInvalidMimeDataException;
class ZyInvalidOperationMathsException;
class ZyInvalidParameterException;
class ZyInvalidPathException;
class ZyInvalidUseException;
class ZyInvalidXMLAttributeName;
class ZyInvalidXMLException;
class ZyInvalidXMLOperation;
class ZyInvalidXMLSchemaException;
class ZyMaths;
class ZyMathsException;
class ZyNoClipboardException;
class ZyNotFoundException;
class ZyNotImplementedException;
class ZyNullDomElementException;
class ZyNullPointerException;
class ZyNullXMLStreamElementException;
class ZyOOXMLWriter;
class ZyOOXMLWriterDocument;
class ZyOOXMLWriterSpreadsheet;
class ZyObject;
class ZyOverflowException;
struct ZyPrint;
class ZyPrivateObject;
class ZyProperties;
class ZyProperty;
class ZyStackLimitException;
class ZyStackMemoryCheck;
class ZyString;
class ZyStringDevice;
class ZyStringDoubleBase64Converter;
struct ZyStringEqual;
struct ZyStringHash;
class ZyStringLongLongConverter;
class ZyStringView;
class ZyTemporaryDir;
class ZyTemporaryFile;
struct ZyThrow;
class ZyTime;
class ZyTimeDuration;
class ZyTimePoint;
class ZyUUID;
class ZyUndefinedFunctionException;
class ZyUnderflowException;
class ZyUndoManager;
class ZyUnknownXMLAttributeException;
class ZyUnknownXMLElementException;
class ZyUrl;
class ZyUserCancelledException;
class ZyVariant;
class ZyVariantTable;
class ZyXMLAttribute;
class ZyXMLAttributeSet;
class ZyXMLAttributeSetPtr;
class ZyXMLDomDocument;
class ZyXMLDomElement;
class ZyXMLDomElementReader;
class ZyXMLDomElementReader;
class ZyXMLDomElementWriter;
class ZyXMLDuplicateRuleException;
class ZyXMLElementReader;
class ZyXMLElementReader;
class ZyXMLElementReader;
class ZyXMLElementReader;
class ZyXMLElementWriter;
class ZyXMLException;
class ZyXMLFactory;
class ZyXMLLoader;
class ZyXMLPath;
class ZyXMLRule;
class ZyXMLSerializableObject;
class ZyXMLSpreadsheetWriter;
class ZyXMLStreamElementReader;
class ZyXMLStreamElementReader;
class ZyXMLStreamElementWriter;
class ZyXMLStreamReader;
class ZyXMLStreamWriter;
class ZyXMLTemplateFactory;
class ZyXMLValidator;
class ZyZipArchive;
struct ZyZipArchive_Internal;
class ZyZipFile;
class ZyZipper;
template <class T>
class ZyCRef;
template <class S, class A>
class ZyCallbackManager;
template <class T>
class ZyConditionVariable;
template <class T>
class ZyContainer;
template <class T, int N>
class ZyContainerGlobalObject;
template <class T, class I>
class ZyContainerIteratorImpl;
template <class T>
class ZyDeque;
template <class T, int N>
class ZyGlobalTemplateObject;
template <class T, class S>
class ZyIndexedContainer;
template <class T>
class ZyIterator;
template <class T>
class ZyIteratorImpl;
template <class T>
class ZyList;
template <class T>
class ZyMatrix;
template <class A, class B>
struct ZyPair;
template <class T>
struct ZyPointTemplate;
template <class T>
class ZyRef;
template <class T>
class ZySharedPtr;
template <class T, class S>
class ZyStandardContainer;
template <class T>
class ZyStringConverter;
template <class T>
class ZyTemplateObject;
template <class T, int N>
struct ZyTimeComponent;
template <class T>
class ZyUniquePtr;
template <class T>
class ZyVector;
template <class T>
class ZyWeakPtr;
template <class T>
struct ZyXMLLambdaDefinition;
template <class T>
class ZyXMLLambdaRule;

using ZyPoint = ZyPointTemplate<int>;
using ZyPointD = ZyPointTemplate<double>;
