#pragma once

#include "states/statebase.h"

/// One routine for each entry of the state list after "No State", tax year 1999, in list order. Each
/// reads the record and the worksheet and writes `stateTax`, and the fields that its own comment lists.

namespace TALLYFIN_FIGURES {

void Alabama();
void Arizona();
void Arkansas();
void CalifTax();
void Colorado();
void Connecticut();
void Delaware();
void DCTax();
void Georgia();
void HawaiiTax();
void Idaho();
void Illinois();
void IndianaTax();
void IowaTax();
void Kansas();
void Kentucky();
void Louisiana();
void MaineTax();
void Maryland();
void Massachusetts();
void MichiganTax();
void Minnesota();
void Mississippi();
void Missouri();
void NebraskaTax();
void NewJersey();
void NewMexico();
void NewYork();
void NCarolina();
void NorthDakota();
void Ohio();
void Oklahoma();
void Oregon();
void Penn();
void RhodeIsland();
void SCarolina();
void Utah();
void Vermont();
void Virginia();
void WestVirginia();
void Wisconsin();

}  // namespace TALLYFIN_FIGURES
