// The declaration tree: the global table at the root, modules in it, and in
// those the classes, interfaces, structures, enums, delegates, methods,
// properties and constants of a program.
//
// Each source unit is scanned into a UnitSymbolTable of its own; its symbols
// are then cloned into the global table, and their types resolved and their
// link names and layouts computed by the declaration resolver. Every
// declaration prints itself back as source text (MakePrototype), which gives
// a plain-text interface listing of a unit.
//
// Tables own the symbols they hold; declaration order is kept everywhere,
// because it fixes vtable slots, property indices and prototypes.
#ifndef COMPILER_SYMBOLTABLE_GLOBALSYMBOLTABLE_H
#define COMPILER_SYMBOLTABLE_GLOBALSYMBOLTABLE_H

#include "Compiler/InterRep.h"
#include "Compiler/SmartRef.h"
#include "Compiler/SymbolTable/SymbolIterators.h"
#include "Compiler/SymbolTable/SymbolTable.h"
#include "Compiler/datatypes.h"
#include "Universal/PointerIndex.h"
#include "Universal/SimpleVector.h"
#include "Universal/stringmap.h"

class ClassSymbol;
class MethodSymbol;

// Which methods a lookup accepts. A setter's last parameter has the Assigns
// role, an extension's first parameter the Extends role.
enum MethodFilter {
  kAllMethods = 0,
  kPlainMethods = 1,            // neither setter nor extension
  kExtensionMethods = 2,        // extensions that are no setters
  kSetterMethods = 3,           // setters that are no extensions
  kExtensionSetterMethods = 4,  // both
};

typedef Ref<SimpleVector<MethodSymbol*> > MethodList;

// A symbol of the declaration tree: it can be cloned into another tree and
// printed back as source.
class GlobalSymbol : public Symbol {
 public:
  explicit GlobalSymbol(string const& name) : Symbol(name) {}
  GlobalSymbol(GlobalSymbol const& original, SourceUnitDependencyLink* link)
      : Symbol(original, link) {}
  // A deep copy carrying `link` as its source unit.
  virtual GlobalSymbol* Clone(SourceUnitDependencyLink* link) const = 0;
  // The declaration as source text; `container` is where it stands.
  virtual string MakePrototype(GlobalSymbol* container) const = 0;
};

// A declaration with an access scope.
class MemberSymbol : public GlobalSymbol {
 public:
  enum Scope { kPublic = 0, kProtected = 1, kPrivate = 2 };

  explicit MemberSymbol(string const& name)
      : GlobalSymbol(name), mScope(kPublic) {}
  MemberSymbol(MemberSymbol const& original, SourceUnitDependencyLink* link)
      : GlobalSymbol(original, link), mScope(original.mScope) {}
  // The scope keyword as written in `container`, with a blank: empty at the
  // top of a unit, "Global " for a public module member.
  virtual string ScopePrototype(GlobalSymbol* container, Scope which) const;

  Scope GetScope() const { return mScope; }
  void SetScope(Scope scope) { mScope = scope; }

 private:
  Scope mScope;
};

class ConstantSymbol : public MemberSymbol {
 public:
  explicit ConstantSymbol(string const& name) : MemberSymbol(name) {}
  ConstantSymbol(string const& name, IRDataType const& type,
                 IRValue const& value)
      : MemberSymbol(name), mType(type), mValue(value) {}
  ConstantSymbol(ConstantSymbol const& original,
                 SourceUnitDependencyLink* link);
  bool IsA(int kind) const override {
    return kind == kConstant || MemberSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;

  IRDataType const& GetType() const { return mType; }
  void SetType(IRDataType const& type) { mType = type; }
  IRValue const& GetValue() const { return mValue; }
  void SetValue(IRValue const& value) { mValue = value; }

 private:
  IRDataType mType;
  IRValue mValue;
};

struct ParameterDefaultValue {
  IRValue value;
  IRDataType type;
};

class ParameterSymbol : public GlobalSymbol {
 public:
  enum Role {
    kNormalParameter = 0,
    kImplicitSelf = 1,  // added by the scanner, named "self"
    kAssignsParameter = 2,
    kExtendsParameter = 3,
    kParamArrayParameter = 4,
  };
  enum Mode {
    kRequired = 0,
    kOptional = 1,
    kHidden = 2,  // passed silently with its default, never written
  };

  explicit ParameterSymbol(string const& name,
                           IRDataType const& type = IRDataType(),
                           Role role = kNormalParameter);
  ParameterSymbol(ParameterSymbol const& original,
                  SourceUnitDependencyLink* link);
  // "self", typed unresolved until the resolver gives it its owner's type.
  static ParameterSymbol* NewImplicitSelf();
  bool IsA(int kind) const override {
    return kind == kParameter || GlobalSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;

  Role GetRole() const { return mRole; }
  void SetRole(Role role) { mRole = role; }
  Mode GetMode() const { return mMode; }
  void SetMode(Mode mode) { mMode = mode; }
  IRDataType const& GetType() const { return mType; }
  void SetType(IRDataType const& type) { mType = type; }
  // Makes a required parameter optional.
  void SetDefaultValue(ParameterDefaultValue const& value);
  // A zero of the parameter's type for a required parameter.
  ParameterDefaultValue GetDefaultValue() const;
  // The stored default, whatever the mode; the resolver types it.
  ParameterDefaultValue& DefaultValueSlot() { return mDefaultValue; }

 private:
  Role mRole;
  Mode mMode;
  IRDataType mType;
  ParameterDefaultValue mDefaultValue;
};

class MethodSymbol : public MemberSymbol {
 public:
  enum DispatchMethod {
    Normal = 0,  // a direct call
    Virtual = 1,  // through the vtable
    Event = 2,    // through the object's event table
    WeakLinked = 3,  // external, resolved at run time, may be absent
    ObjCMessage = 4,  // external, called through a selector
    DelegateInvoke = 5,  // the Invoke method of a delegate
  };

  explicit MethodSymbol(string const& name,
                        IRDataType const& returnType = IRDataType());
  MethodSymbol(MethodSymbol const& original, SourceUnitDependencyLink* link);
  ~MethodSymbol() override;
  bool IsA(int kind) const override {
    return kind == kMethod || MemberSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;

  // Parameters are owned, in declared order, self first.
  void AddParameter(ParameterSymbol* it);
  void InsertParameter(unsigned int index, ParameterSymbol* it);
  unsigned long CountParameters() const { return mParameters.size(); }
  ParameterSymbol* GetParameter(unsigned long i) const { return mParameters[i]; }

  IRDataType const& GetReturnType() const { return mReturnType; }
  void SetReturnType(IRDataType const& type) { mReturnType = type; }
  DispatchMethod GetDispatchMethod() const { return mDispatchMethod; }
  void SetDispatchMethod(DispatchMethod how) { mDispatchMethod = how; }
  unsigned long GetDispatchID() const { return mDispatchID; }
  void SetDispatchID(unsigned long id) { mDispatchID = id; }
  string const& GetFixedLinkName() const { return mFixedLinkName; }
  void SetFixedLinkName(string const& name) { mFixedLinkName = name; }
  string const& GetHandles() const { return mHandles; }
  void SetHandles(string const& eventName) { mHandles = eventName; }
  string const& GetSourceLibrary() const { return mSourceLibrary; }
  void SetSourceLibrary(string const& library) { mSourceLibrary = library; }
  bool External() const;
  void SetExternal(bool state);
  string const& GetLinkID() const { return mLinkID; }
  void SetLinkID(string const& itsID);
  // Rises with every SetLinkID, so that indexes by link ID know they are
  // stale.
  static unsigned long LinkIDChanges();

  bool IsInstanceMethod() const;
  bool IsSetterMethod() const;
  bool IsExtensionMethod() const;
  bool IsParamArrayMethod() const;
  bool MatchesFilter(MethodFilter filter) const;

 private:
  bool LastRoleIs(ParameterSymbol::Role role) const;
  string HeaderPrototype(GlobalSymbol* container) const;

  string mFixedLinkName;
  string mHandles;
  SimpleVector<ParameterSymbol*> mParameters;
  IRDataType mReturnType;
  DispatchMethod mDispatchMethod;
  unsigned long mDispatchID;
  string mSourceLibrary;
  bool mExternal;
  string mLinkID;
};

class PropertySymbol : public MemberSymbol {
 public:
  explicit PropertySymbol(string const& name,
                          IRDataType const& type = IRDataType());
  PropertySymbol(PropertySymbol const& original,
                 SourceUnitDependencyLink* link);
  bool IsA(int kind) const override {
    return kind == kProperty || MemberSymbol::IsA(kind);
  }
  // The clone has no accessors; its owner's clone wires them anew.
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;

  IRDataType const& GetType() const { return mType; }
  void SetType(IRDataType const& type) { mType = type; }
  bool IsShared() const { return mShared; }
  void SetShared(bool shared) { mShared = shared; }
  bool HasCustomAccessors() const { return mCustomAccessors; }
  void SetCustomAccessors(bool state) { mCustomAccessors = state; }
  // Accessors are members of the owner, not owned here.
  MethodSymbol* GetGetter() const { return mGetter; }
  void SetGetter(MethodSymbol* getter) { mGetter = getter; }
  MethodSymbol* GetSetter() const { return mSetter; }
  void SetSetter(MethodSymbol* setter) { mSetter = setter; }
  unsigned long GetStorageOffset() const { return mStorageOffset; }
  void SetStorageOffset(unsigned long offset) { mStorageOffset = offset; }
  long GetPropertyIndex() const { return mPropertyIndex; }
  void SetPropertyIndex(long index) { mPropertyIndex = index; }
  string const& GetLinkName() const { return mLinkName; }
  void SetLinkName(string const& name) { mLinkName = name; }

 private:
  bool mCustomAccessors;
  unsigned long mStorageOffset;
  long mPropertyIndex;
  string mLinkName;
  bool mShared;
  IRDataType mType;
  MethodSymbol* mGetter;
  MethodSymbol* mSetter;
};

// A class method that handles an event by name; the class owns the record.
class HandledEvent {
 public:
  HandledEvent(string const& eventName, MethodSymbol* handler);
  string const& EventName() const { return mEventName; }
  MethodSymbol* Handler() const { return mHandler; }

 private:
  string mEventName;
  MethodSymbol* mHandler;
};

// A declared type: what IRDataType::mDecl points at.
class TypeSymbol : public MemberSymbol {
 public:
  explicit TypeSymbol(string const& name) : MemberSymbol(name) {}
  TypeSymbol(TypeSymbol const& original, SourceUnitDependencyLink* link)
      : MemberSymbol(original, link), mLinkName(original.mLinkName) {}
  bool IsA(int kind) const override {
    return kind == kType || MemberSymbol::IsA(kind);
  }
  // The type of a value of this type.
  virtual IRDataType InstanceType() const = 0;

  // The qualified name: how the type is spelled in messages and mangled
  // names; set by the declaration resolver.
  string mLinkName;
};

// The methods of a declaration that has them. They live in the table of the
// object that embeds this owner, beside its other members.
class MethodDeclarationListOwner {
 public:
  explicit MethodDeclarationListOwner(SymbolTable* table)
      : mMethodTable(table), mLinkIDsIndexed(false), mIndexedSymbols(0),
        mIndexedLinkIDChanges(0) {}
  MethodDeclarationListOwner(MethodDeclarationListOwner const&) = delete;
  MethodDeclarationListOwner& operator=(MethodDeclarationListOwner const&) = delete;
  virtual ~MethodDeclarationListOwner();
  // Every method of the name that passes the filter, newest first; events
  // count as methods here. Null if none.
  virtual MethodList LookupMethods(string const& name,
                                   MethodFilter filter) const;
  MethodSymbol* LookupMethodDeclaration(string const& name,
                                        string const& unitID,
                                        unsigned int line) const;
  void AddMethod(MethodSymbol* it);
  MethodSymbolIterator IterateMethods() const {
    return MethodSymbolIterator(mMethodTable);
  }

  // Whether another method of the name of `method`, declared at another
  // place, has its link ID: two bodies for one signature. `method` is one
  // of this owner's; any other gets false.
  bool LinkIDDeclaredElsewhere(MethodSymbol const* method) const;

 protected:
  SymbolTable* mMethodTable;

 private:
  // Works out every method's answer at once, when first asked and again
  // when the table has grown or a link ID has changed since, and keeps it
  // by the method's address: the question, asked once per method body,
  // costs one probe.
  void IndexLinkIDs() const;
  mutable PointerIndex mDeclaredElsewhere;  // method -> 1 or 0
  mutable bool mLinkIDsIndexed;
  mutable unsigned long mIndexedSymbols;
  mutable unsigned long mIndexedLinkIDChanges;
};

// Clones every method of `from` into `to`, in declared order.
void CloneMethods(MethodDeclarationListOwner const& from,
                  MethodDeclarationListOwner* to,
                  SourceUnitDependencyLink* link);
// The method of `to` that stands where `method` stands among the methods
// of `from`: the clone of `method`, when `to` was cloned from `from`.
MethodSymbol* FindClonedMethod(MethodDeclarationListOwner const& from,
                               MethodDeclarationListOwner const& to,
                               MethodSymbol* method);
class PropertySymbol;
// A clone of `property` of `from` whose accessors are their clones among
// the methods of `to`, which must already hold them.
PropertySymbol* ClonePropertyWithAccessors(PropertySymbol const* property,
                                           MethodDeclarationListOwner const& from,
                                           MethodDeclarationListOwner const& to,
                                           SourceUnitDependencyLink* link);

class ObjectTypeSymbol : public TypeSymbol {
 public:
  explicit ObjectTypeSymbol(string const& name)
      : TypeSymbol(name), mSuperclass(nullptr) {}
  ObjectTypeSymbol(ObjectTypeSymbol const& original,
                   SourceUnitDependencyLink* link);
  bool IsA(int kind) const override {
    return kind == kObjectTypeSymbol || TypeSymbol::IsA(kind);
  }
  IRDataType InstanceType() const override;

  // The superclass as written; the first Inherits counts.
  IRDataType const& GetSuperclassType() const { return mSuperclassType; }
  void SetSuperclassType(IRDataType const& type) { mSuperclassType = type; }
  void ReplaceSuperclassType(IRDataType const& type) { mSuperclassType = type; }
  ClassSymbol* GetParent() const { return mSuperclass; }
  // Links the resolved superclass; refuses a cycle.
  void SetParent(ClassSymbol* parent);

 private:
  IRDataType mSuperclassType;
  ClassSymbol* mSuperclass;
};

class ClassSymbol : public ObjectTypeSymbol, public MethodDeclarationListOwner {
 public:
  explicit ClassSymbol(string const& name);
  ClassSymbol(ClassSymbol const& original, SourceUnitDependencyLink* link);
  ~ClassSymbol() override;
  bool IsA(int kind) const override {
    return kind == kClass || ObjectTypeSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;
  // Own methods, then inherited ones that are neither private nor
  // overridden. Events are left out.
  MethodList LookupMethods(string const& name,
                           MethodFilter filter) const override;

  void AddProperty(PropertySymbol* it);
  void AddConstant(ConstantSymbol* it);
  void AddEvent(MethodSymbol* it);
  void AddHandledEvent(HandledEvent* it);
  void AddImplementedInterface(IRDataType const& it);
  // A type declared inside the class body (a structure).
  void AddType(TypeSymbol* it);
  void InsertImplementedInterface(unsigned long index, IRDataType const& it);
  void ReplaceImplementedInterface(unsigned long index, IRDataType const& it);

  // Own table first, then up the superclasses; a private answer counts
  // as none.
  PropertySymbol* LookupProperty(string const& name) const;
  ConstantSymbol* LookupConstant(string const& name) const;
  MethodSymbol* LookupEvent(string const& name) const;
  // A nested type: own table first, then up the superclasses, where a
  // private one counts as none.
  TypeSymbol* LookupType(string const& name) const;
  // A nested type of this class alone, whatever its scope.
  TypeSymbol* LookupOwnType(string const& name) const;
  HandledEvent* LookupHandledEvent(string const& name) const;
  bool ImplementsInterface(TypeSymbol* it) const;
  Symbol* LookupDeclaration(string const& name, string const& unitID,
                            unsigned int line) const;

  ConstantSymbolIterator IterateConstants() const;
  PropertySymbolIterator IterateProperties() const;
  EventSymbolIterator IterateEvents() const;
  TypeSymbolIterator IterateTypes() const;

  unsigned long CountHandledEvents() const { return mHandledEvents.size(); }
  HandledEvent* GetHandledEvent(unsigned long i) const { return mHandledEvents[i]; }
  unsigned long CountImplementedInterfaces() const {
    return mImplementedInterfaces.size();
  }
  IRDataType const& GetImplementedInterface(unsigned long i) const {
    return mImplementedInterfaces[i];
  }

  unsigned long mVirtualMethodCount;  // vtable slots, the parents' included
  unsigned long mNormalMethodCount;   // dispatch IDs of Normal methods
  unsigned long mPropertyCount;       // the parents' included
  unsigned long mEventCount;          // the parents' included
  unsigned long mStorageSize;  // instance bytes past the object header

 private:
  void CloneMembersFrom(ClassSymbol const& original,
                        SourceUnitDependencyLink* link);

  SimpleVector<HandledEvent*> mHandledEvents;
  SimpleVector<IRDataType> mImplementedInterfaces;
  SymbolTable mTable;
};

class InterfaceSymbol : public ObjectTypeSymbol,
                        public MethodDeclarationListOwner {
 public:
  explicit InterfaceSymbol(string const& name);
  InterfaceSymbol(InterfaceSymbol const& original,
                  SourceUnitDependencyLink* link);
  bool IsA(int kind) const override {
    return kind == kInterface || ObjectTypeSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;

  unsigned long mMethodCount;

 private:
  SymbolTable mTable;
};

class DelegateSymbol : public TypeSymbol {
 public:
  explicit DelegateSymbol(string const& name);
  DelegateSymbol(DelegateSymbol const& original,
                 SourceUnitDependencyLink* link);
  ~DelegateSymbol() override;
  bool IsA(int kind) const override {
    return kind == kDelegate || TypeSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;
  IRDataType InstanceType() const override;
  // The invoker alone, if asked for "Invoke" with a filter that takes it.
  MethodList LookupMethods(string const& name, MethodFilter filter) const;

  // "Invoke", made on first use; owned.
  MethodSymbol* Invoker();
  bool HasInvoker() const { return mInvoker != nullptr; }

 private:
  MethodSymbol* mInvoker;
};

class StructureFieldSymbol : public GlobalSymbol {
 public:
  explicit StructureFieldSymbol(string const& name,
                                IRDataType const& type = IRDataType());
  StructureFieldSymbol(StructureFieldSymbol const& original,
                       SourceUnitDependencyLink* link);
  bool IsA(int kind) const override {
    return kind == kStructureField || GlobalSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;

  IRDataType const& GetType() const { return mType; }
  void SetType(IRDataType const& type) { mType = type; }

  string mLinkName;
  unsigned long mOffset;
  long mArrayUbound;            // -1 unless an array
  unsigned long mStringLength;  // the n of "String * n"; 0 otherwise

 private:
  IRDataType mType;
};

class StructureSymbol : public TypeSymbol {
 public:
  explicit StructureSymbol(string const& name);
  StructureSymbol(StructureSymbol const& original,
                  SourceUnitDependencyLink* link);
  bool IsA(int kind) const override {
    return kind == kStructure || TypeSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;
  IRDataType InstanceType() const override;

  void AddField(StructureFieldSymbol* it);
  StructureFieldSymbol* LookupField(string const& name) const;
  FieldSymbolIterator IterateFields() const;
  unsigned long GetStorageSize() const { return mStorageSize; }
  void SetStorageSize(unsigned long size) { mStorageSize = size; }

 private:
  unsigned long mStorageSize;
  SymbolTable mTable;
};

class EnumSymbol : public TypeSymbol {
 public:
  explicit EnumSymbol(string const& name,
                      SimpleDataType elementType = kSInt32Type);
  EnumSymbol(EnumSymbol const& original, SourceUnitDependencyLink* link);
  bool IsA(int kind) const override {
    return kind == kEnum || TypeSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;
  IRDataType InstanceType() const override;

  // Adds, and makes the value after this constant's the next default.
  void AddConstant(ConstantSymbol* it);
  ConstantSymbol* LookupConstant(string const& name) const;
  ConstantSymbolIterator IterateConstants() const;
  IRValue const& NextDefaultElementValue() const { return mNextValue; }
  SimpleDataType GetElementType() const { return mElementType; }
  void SetElementType(SimpleDataType type) { mElementType = type; }

 private:
  SimpleDataType mElementType;
  IRValue mNextValue;
  SymbolTable mTable;
};

// A module: properties, constants, methods, types and nested modules, all in
// one table.
class ModuleSymbol : public MemberSymbol, public MethodDeclarationListOwner {
 public:
  explicit ModuleSymbol(string const& name);
  ModuleSymbol(ModuleSymbol const& original, SourceUnitDependencyLink* link);
  bool IsA(int kind) const override {
    return kind == kModule || MemberSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;

  // Own table, then the enclosing modules.
  virtual PropertySymbol* LookupProperty(string const& name) const;
  virtual ConstantSymbol* LookupConstant(string const& name) const;
  // Own methods, then those of the enclosing modules; null if none.
  virtual MethodList LookupMethodsRecursive(string const& name,
                                            MethodFilter filter) const;
  virtual TypeSymbol* LookupType(string const& name) const;
  virtual void AddModule(ModuleSymbol* it);
  ModuleSymbol* LookupModule(string const& name) const;
  Symbol* LookupDeclaration(string const& name, string const& unitID,
                            unsigned int line) const;

  void AddProperty(PropertySymbol* it);
  void AddType(TypeSymbol* it);
  void AddConstant(ConstantSymbol* it);

  ConstantSymbolIterator IterateConstants() const;
  PropertySymbolIterator IterateProperties() const;
  TypeSymbolIterator IterateTypes() const;
  ModuleSymbolIterator IterateModules() const;

  ModuleSymbol* GetContainer() const { return mParent; }
  void SetContainer(ModuleSymbol* it);
  // Properties, constants, methods, types and nested modules as source.
  string MakeContentsPrototype() const;
  // The first symbol of the name in the own table that is of `kind`.
  Symbol* FindOwn(string const& name, int kind) const;

  string mLinkName;

 protected:
  // Clones every member of `original` into this module, as a merge does.
  void CloneContentsFrom(ModuleSymbol const& original,
                         SourceUnitDependencyLink* link);

 private:
  ModuleSymbol* mParent;
  SymbolTable mTable;
};

// What the scanner makes of one source unit.
class UnitSymbolTable : public ModuleSymbol {
 public:
  explicit UnitSymbolTable(string const& unitName) : ModuleSymbol(unitName) {}
  bool IsA(int kind) const override {
    return kind == kUnit || ModuleSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;
  // The contents of the unit as source.
  string MakePrototype() const { return MakeContentsPrototype(); }
};

// The root of the tree, and the record of which merged units a compilation
// looked at.
class GlobalSymbolTable : public ModuleSymbol {
 public:
  GlobalSymbolTable();
  ~GlobalSymbolTable() override;
  bool IsA(int kind) const override {
    return kind == kGlobal || ModuleSymbol::IsA(kind);
  }
  GlobalSymbol* Clone(SourceUnitDependencyLink* link) const override;
  string MakePrototype(GlobalSymbol* container) const override;

  // Own table, then the public members of each top-level module.
  PropertySymbol* LookupProperty(string const& name) const override;
  ConstantSymbol* LookupConstant(string const& name) const override;
  MethodList LookupMethodsRecursive(string const& name,
                                    MethodFilter filter) const override;
  TypeSymbol* LookupType(string const& name) const override;
  void AddModule(ModuleSymbol* it) override;

  // Clones the unit's declarations into this table; a named unit gets a
  // dependency link, and `second` rides along with it.
  void MergeUnitSymbols(UnitSymbolTable* it, string const& second);
  // The touched units as (unit ID, second); clears the marks.
  void CopyDependencyList(StringMap<string>* target);

 private:
  // The first public member of the name and kind in a top-level module.
  Symbol* FindInModules(string const& name, int kind) const;

  SourceUnitDependencyLink* mDependencies;
  SimpleVector<ModuleSymbol*> mModules;  // top-level modules, not owned
};

#endif
