#pragma once

// A number generic parameter. While limited, which it is from the start, every value it takes is
// brought into its range after the other constraints have had their say.

#include "foundation/Param.h"

namespace GenericParam {

class DoubleParam : public Param<double> {
public:
    DoubleParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip,
                double value, double min, double max);

    bool requestValChange(ValServer<double>* server, double& value) override;
    Qor::Ptr<iParam> clone() const override { return Qor::Ptr<iParam>(new DoubleParam(*this)); }

    double getMin() const { return min_; }
    double getMax() const { return max_; }
    bool isLimited() const { return limited_; }
    void setLimited(bool limited) { limited_ = limited; }

private:
    double min_;
    double max_;
    bool limited_ = true;
};

} // namespace GenericParam
