// The growable lists under the option store: txlist (plain items), txstrings (texts) and txstringlist (texts,
// each with an object). All can be sorted through tquicksortclass. Indices count from 0 and must be within
// the list.
//
// The first capacity is 16 items. It grows eightfold, and by a quarter above a million items. Lists that exist
// in large numbers grow more slowly while they are short (startsmall). Insertion neither sorts nor removes
// duplicates. Owning lists override freeitem or freeobject and clear themselves in their destructors; that is
// the one rule by which contents are freed.
#pragma once

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <type_traits>
#include <utility>

#include "base/arena.h"
#include "base/heapstring.h"
#include "base/nameindex.h"
#include "base/shortstring.h"
#include "base/textcase.h"

namespace optcore {

// The base of the lists, with the sort. The sort needs only comparison and exchange of two positions.
class tquicksortclass {
 public:
  tquicksortclass() = default;
  tquicksortclass(const tquicksortclass&) = delete;
  tquicksortclass& operator=(const tquicksortclass&) = delete;
  virtual ~tquicksortclass() = default;

  virtual void exchange(std::int32_t i, std::int32_t j) = 0;
  // Negative, zero or positive when item i belongs before, is equal to, or belongs after item j.
  virtual std::int32_t compare(std::int32_t i, std::int32_t j) const = 0;

  // Sorts items 0 .. n - 1 in O(n log n) steps, also in the worst case. The sort is not stable: the order of
  // equal items depends on the choice of the pivots.
  void sortn(std::int32_t n);

 private:
  struct trange {
    std::int32_t lo, hi;
  };
  trange partition(trange range);
  void siftdown(trange heap, std::int32_t root);
  void heapsort(trange range);
  void quicksort(std::int32_t lo, std::int32_t hi);
};

// The next capacity of a list that is full. Throws std::bad_alloc if it does not fit 32 bits.
std::int32_t growncapacity(std::int32_t capacity);

// The array inside the lists: contiguous, for trivially copyable items, grown with realloc. It does not grow
// by itself: before an insertion its user calls setcapacity if it is full.
template <class titem>
class tgrowarray {
  static_assert(std::is_trivially_copyable_v<titem>);

 public:
  tgrowarray() noexcept = default;
  tgrowarray(const tgrowarray&) = delete;
  tgrowarray& operator=(const tgrowarray&) = delete;
  ~tgrowarray() { release(); }

  std::int32_t count() const noexcept { return fcount; }
  std::int32_t capacity() const noexcept { return fcapacity; }
  bool full() const noexcept { return fcount == fcapacity; }
  titem& operator[](std::int32_t index) noexcept {
    assert(index >= 0 && index < fcount);
    return fmemory[index];
  }
  const titem& operator[](std::int32_t index) const noexcept {
    assert(index >= 0 && index < fcount);
    return fmemory[index];
  }

  void setcapacity(std::int32_t capacity) {
    if (capacity < fcount) capacity = fcount;
    if (capacity == fcapacity) return;
    if (capacity == 0) return release();
    void* block =
        std::realloc(static_cast<void*>(fmemory), static_cast<std::size_t>(capacity) * sizeof(titem));
    if (block == nullptr) throw std::bad_alloc();
    fmemory = static_cast<titem*>(block);
    fcapacity = capacity;
  }

  // If the array is full and short, gives it room for `few` items, then for 16, and then for twice as many.
  void startsmall(std::int32_t few) {
    constexpr std::int32_t small = 1024;
    if (full() && fcapacity < small) setcapacity(fcapacity == 0 ? few : std::max(16, 2 * fcapacity));
  }

  // Removes all items and frees the memory.
  void release() noexcept {
    std::free(fmemory);
    fmemory = nullptr;
    fcount = fcapacity = 0;
  }

  void insert(std::int32_t index, const titem& item) noexcept {
    assert(fmemory != nullptr && fcount < fcapacity);
    assert(index >= 0 && index <= fcount);
    move(index + 1, index);
    fmemory[index] = item;
    ++fcount;
  }
  void append(const titem& item) {
    if (full()) setcapacity(growncapacity(fcapacity));
    insert(fcount, item);
  }
  void remove(std::int32_t index) noexcept {
    assert(index >= 0 && index < fcount);
    --fcount;
    move(index, index + 1);
  }
  void removelast() noexcept {
    assert(fcount > 0);
    --fcount;
  }
  void removefirst(std::int32_t removed) noexcept {
    assert(removed >= 0 && removed <= fcount);
    fcount -= removed;
    move(0, removed);
  }

 private:
  // Moves the items from index `from` to the end so that they begin at index `to`. fcount must be the count
  // before an insertion or after a removal.
  void move(std::int32_t to, std::int32_t from) noexcept {
    const std::int32_t moved = fcount - (to < from ? to : from);
    if (moved > 0)
      std::memmove(static_cast<void*>(fmemory + to), static_cast<const void*>(fmemory + from),
                   static_cast<std::size_t>(moved) * sizeof(titem));
  }

  titem* fmemory = nullptr;
  std::int32_t fcount = 0;
  std::int32_t fcapacity = 0;
};

// A list of plain items (pointers, numbers). It does not own what pointers point to.
template <class titem>
class txlist : public tquicksortclass {
 public:
  std::int32_t count() const noexcept { return fitems.count(); }
  std::int32_t capacity() const noexcept { return fitems.capacity(); }
  void setcapacity(std::int32_t capacity) { fitems.setcapacity(capacity); }

  // Makes room for the next item, but little at first. To be called before an insertion into a list of which
  // there may be millions, most of them short.
  void startsmall(std::int32_t few) { fitems.startsmall(few); }

  // Returns the index of the new item.
  std::int32_t add(titem item) {
    if (fitems.full()) grow();
    fitems.insert(count(), item);
    return count() - 1;
  }
  titem get(std::int32_t index) const noexcept { return fitems[index]; }
  void put(std::int32_t index, titem item) {
    freeitem(index);
    fitems[index] = item;
  }
  std::int32_t indexof(titem item) const noexcept {
    for (std::int32_t i = 0; i < count(); ++i)
      if (fitems[i] == item) return i;
    return -1;
  }
  // The "delete" of the list, which is a keyword in C++.
  void remove(std::int32_t index) {
    freeitem(index);
    fitems.remove(index);
  }
  // Deletes the first `removed` items; the others are moved only once.
  void removefirst(std::int32_t removed) {
    for (std::int32_t i = 0; i < removed; ++i) freeitem(i);
    fitems.removefirst(removed);
  }
  // Frees the items from the last to the first and releases the array.
  void clear() {
    while (count() > 0) {
      freeitem(count() - 1);
      fitems.removelast();
    }
    fitems.release();
  }

  void exchange(std::int32_t i, std::int32_t j) override {
    const titem kept = fitems[i];
    fitems[i] = fitems[j];
    fitems[j] = kept;
  }
  // Plain items have no order of their own.
  std::int32_t compare(std::int32_t, std::int32_t) const override { return 0; }
  virtual void grow() { setcapacity(growncapacity(capacity())); }
  virtual void freeitem(std::int32_t) {}

 private:
  tgrowarray<titem> fitems;
};

// A list that owns its texts, each cut at 255 characters.
class txstrings : public txlist<char*> {
 public:
  ~txstrings() override { clear(); }
  std::int32_t add(std::string_view text);
  std::string_view get(std::int32_t index) const noexcept { return getstring(txlist<char*>::get(index)); }
  // The index of the first text that is equal regardless of case, or -1.
  std::int32_t indexof(std::string_view text) const noexcept;

  std::int32_t compare(std::int32_t i, std::int32_t j) const override {
    return pstrucmp(txlist<char*>::get(i), txlist<char*>::get(j));
  }
  void freeitem(std::int32_t index) override { disposestring(txlist<char*>::get(index)); }
};

// A list of texts, each with an object: a pointer, a number or a small structure. The list owns the texts,
// each cut at 255 characters; derived lists may own the objects.
template <class tobject>
class txcustomstringlist : public tquicksortclass {
 public:
  ~txcustomstringlist() override { clearitems(); }

  std::int32_t count() const noexcept { return fitems.count(); }
  std::int32_t capacity() const noexcept { return fitems.capacity(); }
  void setcapacity(std::int32_t capacity) { fitems.setcapacity(capacity); }

  // See txlist.
  void startsmall(std::int32_t few) { fitems.startsmall(few); }

  std::int32_t add(std::string_view text) { return addobject(text, tobject()); }
  std::int32_t addobject(std::string_view text, tobject object) {
    insertitem(count(), text, object);
    return count() - 1;
  }
  void insertitem(std::int32_t index, std::string_view text, tobject object) {
    if (fitems.full()) grow();
    if (index != count()) findex.reset();
    fitems.insert(index, {newstring(text), object});
  }
  std::string_view getname(std::int32_t index) const noexcept { return getstring(fitems[index].text); }
  tobject getobject(std::int32_t index) const noexcept { return fitems[index].object; }
  void putobject(std::int32_t index, tobject object) noexcept { fitems[index].object = object; }

  // The index of the first text that is equal regardless of case, or -1.
  std::int32_t indexof(std::string_view text) const { return findex.find(count(), tnamekey{text}, keyat()); }
  std::int32_t indexof(const tsoughtname& name) const { return findex.find(count(), name, keyat()); }
  // The same without a call, for a list whose index is complete.
  bool hasindex() const noexcept { return findex.iscomplete(count()); }
  [[gnu::always_inline]] std::int32_t indexofentered(std::string_view text) const {
    return findex.findentered(tnamekey{text}, keyat());
  }
  std::int32_t indexofobject(tobject object) const noexcept {
    for (std::int32_t i = 0; i < count(); ++i)
      if (fitems[i].object == object) return i;
    return -1;
  }
  // The "delete" of the list, which is a keyword in C++.
  void remove(std::int32_t index) {
    findex.reset();
    freetext(fitems[index].text);
    freeobject(index);
    fitems.remove(index);
  }
  void clear() { clearitems(); }

  void exchange(std::int32_t i, std::int32_t j) override {
    findex.reset();
    const tlistitem kept = fitems[i];
    fitems[i] = fitems[j];
    fitems[j] = kept;
  }
  std::int32_t compare(std::int32_t i, std::int32_t j) const override {
    return pstrucmp(fitems[i].text, fitems[j].text);
  }
  virtual void grow() { setcapacity(growncapacity(capacity())); }
  // cppcheck-suppress virtualCallInConstructor ; each owning list clears itself in its own destructor
  virtual void freetext(char* text) { disposestring(text); }
  virtual void freeobject(std::int32_t) {}

 protected:
  // Adds a text that has a block already.
  void addblock(char* text, tobject object) {
    if (fitems.full()) grow();
    fitems.insert(count(), {text, object});
  }
  char* getblock(std::int32_t index) const noexcept { return fitems[index].text; }
  // Enters the text that was just added into the index. `name` must be that text.
  void addedname(const tsoughtname& name) { findex.added(count(), name, keyat()); }

 private:
  struct tlistitem {
    char* text;
    tobject object;
  };

  auto keyat() const noexcept {
    return [this](std::int32_t i) { return tnamekey{getname(i)}; };
  }
  void clearitems() {
    findex.reset();
    while (count() > 0) {
      freetext(fitems[count() - 1].text);
      freeobject(count() - 1);
      fitems.removelast();
    }
    fitems.release();
  }

  tgrowarray<tlistitem> fitems;
  mutable tnameindex findex;  // built on the first search, discarded when positions change
};

template <class tobject>
class txstringlist : public txcustomstringlist<tobject> {};

// The two owning lists: they delete their items, or the objects of their texts.
template <class tobject>
class txlistobj : public txlist<tobject*> {
 public:
  ~txlistobj() override { this->clear(); }
  // Takes ownership of the object.
  std::int32_t add(std::unique_ptr<tobject> object) {
    const std::int32_t index = txlist<tobject*>::add(object.get());
    static_cast<void>(object.release());
    return index;
  }
  void freeitem(std::int32_t index) override { delete this->get(index); }
};

template <class tobject>
class txstringlistobj : public txstringlist<tobject*> {
 public:
  ~txstringlistobj() override { this->clear(); }
  // Takes ownership of the object.
  std::int32_t addobject(std::string_view text, std::unique_ptr<tobject> object) {
    const std::int32_t index = txstringlist<tobject*>::addobject(text, object.get());
    static_cast<void>(object.release());
    return index;
  }
  void freeobject(std::int32_t index) override { delete this->getobject(index); }
};

// A txstringlistobj whose texts lie in an arena, which frees them.
template <class tobject>
class tstoredlistobj : public txstringlistobj<tobject> {
 public:
  ~tstoredlistobj() override { this->clear(); }
  // These would put a text on the heap, which nobody would free.
  std::int32_t add(std::string_view text) = delete;
  std::int32_t addobject(std::string_view text, std::unique_ptr<tobject> object) = delete;
  void insertitem(std::int32_t index, std::string_view text, tobject* object) = delete;
  // Takes ownership of the object. `name`, if given, must be the text; it is entered into the index.
  void addstored(tstoredtext text, std::unique_ptr<tobject> object) {
    this->addblock(text.block(), object.get());
    static_cast<void>(object.release());
  }
  void addstored(tstoredtext text, std::unique_ptr<tobject> object, const tsoughtname& name) {
    addstored(text, std::move(object));
    this->addedname(name);
  }
  tstoredtext storedtext(std::int32_t index) const noexcept { return tstoredtext(this->getblock(index)); }
  void freetext(char*) override {}
};

}  // namespace optcore
