//---------------------------------------------------------------------------
#ifndef OptionsH
#define OptionsH
//---------------------------------------------------------------------------
#include "QzForms.hpp"
//---------------------------------------------------------------------------
class TOptionsForm : public TQzCForm
{
__published:	// IDE-managed Components
private:	// User declarations
public:		// User declarations
    __fastcall TOptionsForm(TComponent* Owner);
};
//---------------------------------------------------------------------------
extern PACKAGE TOptionsForm *OptionsForm;
//---------------------------------------------------------------------------
#endif
