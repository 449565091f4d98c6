// A plate with a hole whose elements are to be small at the hole and in a corner.

Point(1) = {0, 0, 0};
Point(2) = {4, 0, 0};
Point(3) = {4, 3, 0};
Point(4) = {0, 3, 0};
Point(5) = {2, 1.5, 0};
Point(6) = {2.5, 1.5, 0};
Point(7) = {1.5, 1.5, 0};

Line(1) = {1, 2};
Line(2) = {2, 3};
Line(3) = {3, 4};
Line(4) = {4, 1};
Circle(5) = {6, 5, 7};
Circle(6) = {7, 5, 6};

Curve Loop(1) = {1, 2, 3, 4};
Curve Loop(2) = {5, 6};
Plane Surface(1) = {1, 2};

Physical Surface("Plate") = {1};
Physical Curve("Hole") = {5, 6};

Field[1] = Distance;
Field[1].CurvesList = {5, 6};
Field[2] = Threshold;
Field[2].InField = 1;
Field[2].SizeMin = 0.05;
Field[2].SizeMax = 0.5;
Field[2].DistMin = 0.1;
Field[2].DistMax = 1;
Field[3] = Box;
Field[3].VIn = 0.1;
Field[3].VOut = 0.5;
Field[3].XMax = 1;
Field[3].YMax = 1;
Field[4] = Min;
Field[4].FieldsList = {2, 3};
Background Field = 4;

Field[5] = BoundaryLayer;
Field[5].CurvesList = {1};
Field[5].Size = 0.02;
Field[5].Ratio = 1.2;
Field[5].Thickness = 0.2;
BoundaryLayer Field = 5;
