// SPDX-License-Identifier: LicenseRef-ORVALD
// The formulas of the geometry benchmark in plain C++, as one would write them once for the case at
// hand: no tolerances from a configuration, no degenerate input looked at unless the formula needs
// it. In a file of their own, so that they stay calls as the kernel's functions are.
#pragma once

namespace peers {

struct P
{
    double x, y, z;
};
struct Two
{
    P at[2];
    int count;
};

double angle(double a);
double difference(double a1, double a2);
int octant(double a);
double triangle(double a, double b, double c);
double rounded(double x, double step);
double turn(const P& a, const P& b, const P& c);
bool circle(const P& a, const P& b, const P& c, P& centre);
bool bulge(const P& a, const P& b, const P& c, double& bulge);
double bulgeOfRadius(double r, const P& a, const P& b);
Two circleLine(const P& c, double r, const P& a, const P& b);
Two circles(const P& c1, double r1, const P& c2, double r2);
Two arcs(const P& c1, double r1, double a1, double a2, const P& c2, double r2, double a3,
         double a4);
bool lines(const P& a, const P& b, const P& c, const P& d, P& at);
P foot(const P& p, const P& a, const P& b);
double distance(const P& p, const P& a, const P& b);
Two contacts(const P& p, const P& c, double r);
double ellipseRadius(double a, double b, double w);
double springing(double w, double h);
double turned(const P& a, const P& b);

} // namespace peers
