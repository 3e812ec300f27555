#pragma once

// An order with its legs, written out in full as the design tool generates message classes: typed members, one flag for
// each field, metadata from static tables, and a switch over the index in each hook. Order.h declares the same message
// in a dozen lines.

#include "tavrone/tavrone.h"

namespace examples {

class GeneratedLeg : public tavrone::AbstractDataObject {
 public:
  enum Field { SYMBOL, RATIO, PRICE, FIELD_COUNT };

  explicit GeneratedLeg(tavrone::DataObjectSection *parent = nullptr);
  GeneratedLeg(GeneratedLeg const &other);
  GeneratedLeg &operator=(GeneratedLeg const &other) = default;

  static tavrone::DataObjectMetaInfo *metaInfoOfType();

  tavrone::Object *clone() const override { return new GeneratedLeg(*this); }

  tavrone::tvstring const &getSymbol() const {
    ensureNotNull(SYMBOL);
    return symbol_;
  }
  void setSymbol(tavrone::tvstring const &value) {
    symbol_ = value;
    setNotNull(SYMBOL);
  }
  int getRatio() const {
    ensureNotNull(RATIO);
    return ratio_;
  }
  void setRatio(int value) {
    ratio_ = value;
    setNotNull(RATIO);
  }
  double getPrice() const {
    ensureNotNull(PRICE);
    return price_;
  }
  void setPrice(double value) {
    price_ = value;
    setNotNull(PRICE);
  }

 protected:
  using AbstractDataObject::getField0;
  tavrone::Object *getField0(int index, tavrone::Object *out) const override;
  void setField0(int index, tavrone::Object const *value) override;

 private:
  tavrone::tvstring symbol_;
  int ratio_ = 0;
  double price_ = 0;
  bool flags_[FIELD_COUNT];
};

class GeneratedOrder : public tavrone::AbstractDataObject {
 public:
  enum Field {
    ORDER_ID,
    ACCOUNT,
    SYMBOL,
    SIDE,
    QUANTITY,
    EXECUTED_QUANTITY,
    PRICE,
    RATE,
    NOTIONAL,
    TRADE_DATE,
    TRANSACT_TIME,
    ALL_OR_NONE,
    SIGNATURE,
    TEXT,
    LEGS,
    FIELD_COUNT
  };

  explicit GeneratedOrder(tavrone::DataObjectSection *parent = nullptr);
  GeneratedOrder(GeneratedOrder const &other);
  GeneratedOrder &operator=(GeneratedOrder const &other);

  static tavrone::DataObjectMetaInfo *metaInfoOfType();

  tavrone::Object *clone() const override { return new GeneratedOrder(*this); }
  void reset() override;
  tavrone::DataObject *createSectionElement(tavrone::tvstring const &name,
                                            tavrone::DataObjectSection *section) const override;

  tavrone::tvstring const &getOrderID() const {
    ensureNotNull(ORDER_ID);
    return orderID_;
  }
  void setOrderID(tavrone::tvstring const &value) {
    orderID_ = value;
    setNotNull(ORDER_ID);
  }
  tavrone::tvstring const &getAccount() const {
    ensureNotNull(ACCOUNT);
    return account_;
  }
  void setAccount(tavrone::tvstring const &value) {
    account_ = value;
    setNotNull(ACCOUNT);
  }
  tavrone::tvstring const &getSymbol() const {
    ensureNotNull(SYMBOL);
    return symbol_;
  }
  void setSymbol(tavrone::tvstring const &value) {
    symbol_ = value;
    setNotNull(SYMBOL);
  }
  char getSide() const {
    ensureNotNull(SIDE);
    return side_;
  }
  void setSide(char value) {
    side_ = value;
    setNotNull(SIDE);
  }
  int getQuantity() const {
    ensureNotNull(QUANTITY);
    return quantity_;
  }
  void setQuantity(int value) {
    quantity_ = value;
    setNotNull(QUANTITY);
  }
  long long getExecutedQuantity() const {
    ensureNotNull(EXECUTED_QUANTITY);
    return executedQuantity_;
  }
  void setExecutedQuantity(long long value) {
    executedQuantity_ = value;
    setNotNull(EXECUTED_QUANTITY);
  }
  double getPrice() const {
    ensureNotNull(PRICE);
    return price_;
  }
  void setPrice(double value) {
    price_ = value;
    setNotNull(PRICE);
  }
  float getRate() const {
    ensureNotNull(RATE);
    return rate_;
  }
  void setRate(float value) {
    rate_ = value;
    setNotNull(RATE);
  }
  tavrone::BigDecimal const &getNotional() const {
    ensureNotNull(NOTIONAL);
    return notional_;
  }
  void setNotional(tavrone::BigDecimal const &value) {
    notional_ = value;
    setNotNull(NOTIONAL);
  }
  tavrone::DateTime const &getTradeDate() const {
    ensureNotNull(TRADE_DATE);
    return tradeDate_;
  }
  void setTradeDate(tavrone::DateTime const &value) {
    tradeDate_ = value;
    setNotNull(TRADE_DATE);
  }
  tavrone::DateTime const &getTransactTime() const {
    ensureNotNull(TRANSACT_TIME);
    return transactTime_;
  }
  void setTransactTime(tavrone::DateTime const &value) {
    transactTime_ = value;
    setNotNull(TRANSACT_TIME);
  }
  bool getAllOrNone() const {
    ensureNotNull(ALL_OR_NONE);
    return allOrNone_;
  }
  void setAllOrNone(bool value) {
    allOrNone_ = value;
    setNotNull(ALL_OR_NONE);
  }
  tavrone::Binary const &getSignature() const {
    ensureNotNull(SIGNATURE);
    return signature_;
  }
  void setSignature(tavrone::Binary const &value) {
    signature_ = value;
    setNotNull(SIGNATURE);
  }
  tavrone::tvstring const &getText() const {
    ensureNotNull(TEXT);
    return text_;
  }
  void setText(tavrone::tvstring const &value) {
    text_ = value;
    setNotNull(TEXT);
  }
  tavrone::DataObjectSectionImpl &getLegs() { return legs_; }
  tavrone::DataObjectSectionImpl const &getLegs() const { return legs_; }

 protected:
  using AbstractDataObject::getField0;
  tavrone::Object *getField0(int index, tavrone::Object *out) const override;
  void setField0(int index, tavrone::Object const *value) override;

 private:
  tavrone::tvstring orderID_;
  tavrone::tvstring account_;
  tavrone::tvstring symbol_;
  char side_ = 0;
  int quantity_ = 0;
  long long executedQuantity_ = 0;
  double price_ = 0;
  float rate_ = 0;
  tavrone::BigDecimal notional_;
  tavrone::DateTime tradeDate_;
  tavrone::DateTime transactTime_;
  bool allOrNone_ = false;
  tavrone::Binary signature_;
  tavrone::tvstring text_;
  tavrone::DataObjectSectionImpl legs_;
  bool flags_[FIELD_COUNT];
};

}  // namespace examples
